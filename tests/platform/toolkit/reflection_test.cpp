#include <gtest/gtest.h>

#include "platform/toolkit/toolkit.h"
#include "tests/platform/toolkit/test_module.h"

namespace {

/// A control that answers for itself what its parent is asked about it.
class Control : public CWnd {
public:
    HBRUSH brush = nullptr;
    UINT color_kind = 99;
    UINT notified = 0;

protected:
    HBRUSH CtlColor(CDC* dc, UINT kind) {
        EXPECT_NE(dc->m_hDC, nullptr);
        color_kind = kind;
        return brush;
    }
    void OnCustomDraw(NMHDR* header, LRESULT* result) {
        notified = header->code;
        *result = CDRF_NOTIFYITEMDRAW;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Control, CWnd)
    ON_WM_CTLCOLOR_REFLECT()
    ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, &Control::OnCustomDraw)
END_MESSAGE_MAP()

/// A parent with handlers of its own, which pass on what they are asked about when told to.
class Parent : public tests::Frame {
public:
    bool passes_on = false;
    int asked = 0;
    UINT notified = 0;

protected:
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
        ++asked;
        if (passes_on) return CWnd::OnCtlColor(dc, control, kind);
        return static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH));
    }
    void OnDrawItem(int id, LPDRAWITEMSTRUCT item) {
        ++asked;
        if (passes_on) CWnd::OnDrawItem(id, item);
    }
    void OnNotification(NMHDR* header, LRESULT* result) {
        notified = header->code;
        *result = 3;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Parent, CWnd)
    ON_WM_CTLCOLOR()
    ON_WM_DRAWITEM()
    ON_NOTIFY(NM_CUSTOMDRAW, 5, &Parent::OnNotification)
    ON_NOTIFY(NM_RCLICK, 5, &Parent::OnNotification)
END_MESSAGE_MAP()

template <class Child>
void CreateChild(Child& child, CWnd& parent, const char* class_name, DWORD style = 0) {
    ASSERT_TRUE(
        child.CWnd::Create(class_name, "", WS_CHILD | style, CRect(0, 0, 40, 20), &parent, 5));
}

LRESULT AskColor(CWnd& parent, const CWnd& control, UINT message = WM_CTLCOLOREDIT) {
    CClientDC dc(&parent);
    return parent.SendMessage(message, reinterpret_cast<WPARAM>(dc.m_hDC),
                              reinterpret_cast<LPARAM>(control.m_hWnd));
}

LRESULT Stock(int index) { return reinterpret_cast<LRESULT>(::GetStockObject(index)); }

TEST(ColorReflection, TheControlIsAskedWhenItsParentHasNoHandler) {
    tests::Frame frame;
    Control control;
    CreateChild(control, frame, "Edit");
    const LRESULT plain = AskColor(frame, frame);
    EXPECT_EQ(control.color_kind, 99u);

    control.brush = static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH));
    EXPECT_EQ(AskColor(frame, control), Stock(GRAY_BRUSH));
    EXPECT_EQ(control.color_kind, UINT{CTLCOLOR_EDIT});
    EXPECT_EQ(AskColor(frame, control, WM_CTLCOLORSTATIC), Stock(GRAY_BRUSH));
    EXPECT_EQ(control.color_kind, UINT{CTLCOLOR_STATIC});

    // No brush: the question goes on to the system.
    control.brush = nullptr;
    EXPECT_EQ(AskColor(frame, control), plain);
}

TEST(ColorReflection, TheParentComesFirst) {
    Parent parent;
    Control control;
    CreateChild(control, parent, "Edit");
    control.brush = static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH));
    EXPECT_EQ(AskColor(parent, control), Stock(BLACK_BRUSH));
    EXPECT_EQ(control.color_kind, 99u);
    parent.passes_on = true;
    EXPECT_EQ(AskColor(parent, control), Stock(GRAY_BRUSH));
    EXPECT_EQ(parent.asked, 2);
}

TEST(NotifyReflection, TheControlComesFirst) {
    Parent parent;
    Control control;
    CreateChild(control, parent, "Static");
    NMHDR header{control, 5, NM_CUSTOMDRAW};
    const auto notify = [&] {
        return parent.SendMessage(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header));
    };
    EXPECT_EQ(notify(), CDRF_NOTIFYITEMDRAW);
    EXPECT_EQ(control.notified, NM_CUSTOMDRAW);
    EXPECT_EQ(parent.notified, 0u);
    header.code = NM_RCLICK;
    EXPECT_EQ(notify(), 3);
    EXPECT_EQ(parent.notified, NM_RCLICK);
    EXPECT_EQ(control.notified, NM_CUSTOMDRAW);

    // A notification about nobody, and none at all.
    header = {nullptr, 5, NM_CUSTOMDRAW};
    EXPECT_EQ(notify(), 3);
    EXPECT_EQ(parent.SendMessage(WM_NOTIFY, 5, 0), 0);
}

class OwnButton : public CButton {
public:
    UINT state = 0;
    void DrawItem(LPDRAWITEMSTRUCT item) override { state = item->itemState; }
};

class OwnList : public CListBox {
public:
    UINT drawn = 0;
    void DrawItem(LPDRAWITEMSTRUCT item) override { drawn = item->itemID; }
    void MeasureItem(LPMEASUREITEMSTRUCT item) override { item->itemHeight = 22; }
};

TEST(DrawReflection, OwnerDrawnControlsDrawThemselves) {
    Parent parent;
    OwnButton button;
    CreateChild(button, parent, "Button", BS_OWNERDRAW);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = 5;
    item.itemState = ODS_FOCUS;
    item.hwndItem = button;
    const auto draw = [&] {
        parent.SendMessage(WM_DRAWITEM, 5, reinterpret_cast<LPARAM>(&item));
        return button.state;
    };
    EXPECT_EQ(draw(), 0u);
    EXPECT_EQ(parent.asked, 1);
    parent.passes_on = true;
    EXPECT_EQ(draw(), UINT{ODS_FOCUS});
    button.DestroyWindow();
    EXPECT_EQ(draw(), UINT{ODS_FOCUS});
}

TEST(DrawReflection, ListsMeasureAndDraw) {
    tests::Frame frame;
    OwnList list;
    CreateChild(list, frame, "ListBox", LBS_OWNERDRAWFIXED | LBS_HASSTRINGS);
    MEASUREITEMSTRUCT measure{};
    measure.CtlID = 5;
    frame.SendMessage(WM_MEASUREITEM, 5, reinterpret_cast<LPARAM>(&measure));
    EXPECT_EQ(measure.itemHeight, 22u);
    DRAWITEMSTRUCT item{};
    item.itemID = 4;
    item.hwndItem = list;
    EXPECT_EQ(frame.SendMessage(WM_DRAWITEM, 5, reinterpret_cast<LPARAM>(&item)), TRUE);
    EXPECT_EQ(list.drawn, 4u);
}

}  // namespace
