// What every control has to survive: odd sizes, no core, its end within its own notification; and
// that it leaves nothing behind.

#include <functional>
#include <memory>
#include <utility>

#include "controls/black_button.h"
#include "controls/bmp_button_no_pic.h"
#include "controls/bs_button.h"
#include "controls/my_list_box.h"
#include "controls/my_tree.h"
#include "controls/ower_check_box.h"
#include "controls/ower_draw_list_view.h"
#include "controls/ower_draw_static.h"
#include "controls/ratio_button.h"
#include "controls/rv_msgr_btn.h"
#include "controls/tab_set.h"
#include "controls/v_button.h"
#include "platform/testing/input.h"
#include "platform/testing/window_tree.h"
#include "plugin/contract/core_access.h"
#include "tests/controls/stage.h"

namespace tests {

namespace {

using platform::testing::Click;
using platform::testing::MovePointer;
using platform::testing::Pump;

constexpr UINT kId = 12;
const CRect kPlace(20, 20, 140, 60);

using Control = std::unique_ptr<CWnd>;

template <class Button>
Control MakeButton(CWnd* parent) {
    auto button = std::make_unique<Button>();
    button->Create("买入", WS_VISIBLE | WS_TABSTOP, kPlace, parent, kId);
    return button;
}

Control MakeList(CWnd* parent) {
    auto list = std::make_unique<COwerDrawListView>();
    list->Create(kPlace, parent, kId);
    list->InsertColumn("合约", 200, 37, 36, FALSE, TRUE);
    list->InsertRow("Au(T+D)");
    list->SetItemTip(0, 0, "黄金延期");
    list->ShowWindow(SW_SHOW);
    return list;
}

Control MakeTabs(CWnd* parent) {
    auto tabs = std::make_unique<CTabSet>();
    tabs->Create(parent, kId);
    tabs->AddTab("转账");
    tabs->AddTab("流水");
    tabs->MoveWindow(&kPlace);
    return tabs;
}

template <class Class>
Control MakeStandard(CWnd* parent, const char* name, DWORD style) {
    auto control = std::make_unique<Class>();
    control->CreateEx(0, name, "资金", WS_CHILD | WS_VISIBLE | style, kPlace.left, kPlace.top,
                      kPlace.Width(), kPlace.Height(), *parent,
                      reinterpret_cast<HMENU>(UINT_PTR{kId}));
    return control;
}

HTREEITEM AddNode(const CWnd& tree, HTREEITEM parent) {
    char text[] = "Au";
    TVINSERTSTRUCT insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = text;
    return reinterpret_cast<HTREEITEM>(
        tree.SendMessage(TVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(&insert)));
}

Control MakeTree(CWnd* parent) {
    Control tree = MakeStandard<CMyTree>(parent, WC_TREEVIEW, TVS_HASBUTTONS | TVS_LINESATROOT);
    AddNode(*tree, AddNode(*tree, TVI_ROOT));
    return tree;
}

Control MakeMenu(CWnd* parent) {
    auto menu = MakeStandard<CMyListBox>(parent, "LISTBOX", LBS_OWNERDRAWFIXED | LBS_HASSTRINGS);
    static_cast<CMyListBox&>(*menu).AddItem("查询", 0);
    return menu;
}

Control MakeStatic(CWnd* parent) {
    Control label = MakeStandard<COwerDrawStatic>(parent, "STATIC", SS_LEFT);
    static_cast<COwerDrawStatic&>(*label).SetBackgroundOwner(parent);
    return label;
}

Control MakeTippedButton(CWnd* parent) {
    Control button = MakeButton<CBmpButton>(parent);
    static_cast<CBmpButton&>(*button).SetTip("买入");
    return button;
}

struct Kind {
    const char* name;
    Control (*make)(CWnd* parent);
};

constexpr Kind kKinds[] = {
    {"List", MakeList},
    {"Tabs", MakeTabs},
    {"Radio", MakeButton<COwerRadio>},
    {"Check", MakeButton<COwerCheckBox>},
    {"Static", MakeStatic},
    {"Menu", MakeMenu},
    {"Tree", MakeTree},
    {"Picture", MakeTippedButton},
    {"Flat", MakeButton<CBmpButtonNoPic>},
    {"Big", MakeButton<CBSButton>},
    {"Black", MakeButton<CBlackButton>},
    {"Upright", MakeButton<CVButton>},
    {"Ratio", MakeButton<CRatioButton>},
    {"Odd", MakeButton<COddButton>},
    {"Raised", MakeButton<CRvMsgrBtn>},
};

/// Notes clicks; ends the control, if asked, at the first thing that it tells.
class EndingStage : public Stage {
public:
    CWnd* victim = nullptr;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const bool told = message == WM_COMMAND || message == WM_NOTIFY ||
                          (message >= WM_USER && message < 0xC000);
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED && lParam != 0) {
            events.emplace_back("click");
        }
        if (told && victim != nullptr) std::exchange(victim, nullptr)->DestroyWindow();
        return Stage::WindowProc(message, wParam, lParam);
    }
};

class ControlLife : public ::testing::TestWithParam<Kind> {
protected:
    ControlLife() {
        platform::testing::StopClock();
        MovePointer({5, 5});
        platform::testing::PumpFor(::GetDoubleClickTime() + 1);
    }

    /// Goes over a control with everything that a person has.
    static void Use(CWnd& control) {
        if (control.m_hWnd == nullptr) return;
        for (const POINT at : {POINT{5, 10}, POINT{60, 30}, POINT{110, 8}}) {
            Click(control, at.x, at.y);
        }
        platform::testing::PumpFor(400);
        control.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    }

    RecordingCore core_;
    FrontEndDoors doors_{core_};
    EndingStage stage_;
};

TEST_P(ControlLife, AnySizeWillDo) {
    const Control control = GetParam().make(&stage_);
    for (const SIZE size : {SIZE{0, 0}, SIZE{1, 1}, SIZE{11, 3}, SIZE{0, 40}, SIZE{40, 0},
                            SIZE{30000, 2}, SIZE{2, 30000}, SIZE{120, 40}}) {
        control->MoveWindow(20, 20, size.cx, size.cy);
        Use(*control);
    }
    EXPECT_TRUE(::IsWindow(*control));
}

TEST_P(ControlLife, NeedsNoCore) {
    g_pUICallBack = nullptr;
    const Control control = GetParam().make(&stage_);
    Use(*control);
    EXPECT_TRUE(::IsWindow(*control));
}

TEST_P(ControlLife, MayEndInItsOwnNotification) {
    const Control control = GetParam().make(&stage_);
    Pump();
    stage_.victim = control.get();
    Use(*control);
    control->DestroyWindow();
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_P(ControlLife, AnInterruptedPressTellsNothing) {
    const std::function<void(CWnd&)> interruptions[] = {
        [](CWnd& control) { control.EnableWindow(FALSE); },
        [](CWnd&) { ::ReleaseCapture(); },
        [this](CWnd&) { stage_.SetCapture(); },
        [](CWnd& control) { control.ShowWindow(SW_HIDE); },
        [](CWnd& control) { control.DestroyWindow(); },
    };
    for (const auto& interrupt : interruptions) {
        const Control control = GetParam().make(&stage_);
        MovePointer(platform::testing::ScreenPoint(*control));
        platform::testing::Press();
        stage_.Heard();
        interrupt(*control);
        ::ReleaseCapture();
        platform::testing::Release();
        EXPECT_EQ(stage_.Heard(), "");
        EXPECT_EQ(::GetCapture(), nullptr);
        control->DestroyWindow();
    }
}

TEST_P(ControlLife, LeavesNoWindowBehind) {
    const auto use_and_end = [this] {
        const Control control = GetParam().make(&stage_);
        control->UpdateWindow();
        control->DestroyWindow();
    };
    use_and_end();
    const std::string windows = platform::testing::WindowTree(nullptr);
    for (int i = 0; i < 1000; ++i) use_and_end();
    EXPECT_EQ(platform::testing::WindowTree(nullptr), windows);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ControlLife, ::testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

}  // namespace

}  // namespace tests
