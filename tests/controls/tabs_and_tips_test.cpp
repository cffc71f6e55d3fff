#include <random>
#include <regex>

#include "controls/color_tag.h"
#include "controls/tab_set.h"
#include "controls/templates.h"
#include "controls/tool_tip.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "tests/controls/stage.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Click;
using platform::testing::MovePointer;
using platform::testing::Pump;

/// Notes what tabs and tips report.
class Listener : public Stage {
public:
    std::vector<int> changes;  ///< ids of TCN_SELCHANGE
    std::vector<LPARAM> items;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        if (header.code == static_cast<UINT>(-551)) changes.push_back(static_cast<int>(wParam));
        return Stage::OnNotify(wParam, lParam, result);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == 1025) items.push_back(lParam);
        return Stage::WindowProc(message, wParam, lParam);
    }
};

class TabsAndTips : public ::testing::Test {
protected:
    TabsAndTips() {
        platform::testing::RememberTexts();
        platform::testing::StopClock();
        MovePointer({1200, 780});
        Pump();
    }
    RecordingCore core_;
    FrontEndDoors doors_{core_};
    Listener parent_;
};

class Tabs : public TabsAndTips {
protected:
    Tabs() {
        tabs_.Create(&parent_, 77);
        tabs_.MoveWindow(10, 10, 300, 24);
        tabs_.AddTab("转账");
        tabs_.AddTab("转账流水");
        Pump();
    }
    CTabSet tabs_;
};

TEST_F(Tabs, ShowTheSelectedOneBoldAndHigher) {
    const auto texts = platform::testing::SeenTexts(tabs_);
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].utf8, text::Utf8FromGbk("转账"));
    EXPECT_TRUE(texts[0].bold);
    EXPECT_FALSE(texts[1].bold);
    for (const auto& text : texts) EXPECT_EQ(text.color, COLORREF{0x171717});
    // Centred in 79 pixels each, 2 between.
    EXPECT_NEAR(texts[0].rect.left + texts[0].rect.right, 79, 2);
    EXPECT_NEAR(texts[1].rect.left + texts[1].rect.right, 2 * 81 + 79, 2);
}

TEST_F(Tabs, ReportOnlyAnotherTab) {
    Click(tabs_, 20, 10);
    Click(tabs_, 250, 10);
    EXPECT_TRUE(parent_.changes.empty());
    Click(tabs_, 90, 10);
    EXPECT_EQ(parent_.changes, std::vector<int>{77});
    EXPECT_EQ(tabs_.GetCurSel(), 1);
    // The edges belong to the tab, those of the gap to none.
    Click(tabs_, 79, 10);
    EXPECT_EQ(tabs_.GetCurSel(), 0);
    Click(tabs_, 80, 10);
    EXPECT_EQ(tabs_.GetCurSel(), 0);
}

TEST_F(Tabs, CutTheirTextAndCloseTheRow) {
    EXPECT_EQ(tabs_.AddTab("一二三四五六七八九十一二三四五六"), 2);
    Pump();
    EXPECT_EQ(platform::testing::SeenTexts(tabs_)[2].utf8,
              text::Utf8FromGbk("一二三四五六七八九十一二三四五"));
    tabs_.RemoveTab(0);
    tabs_.RemoveTab(9);
    tabs_.RemoveTab(-1);
    Pump();
    EXPECT_EQ(platform::testing::SeenTexts(tabs_)[0].utf8, text::Utf8FromGbk("转账流水"));
    tabs_.RemoveTab(0);
    tabs_.RemoveTab(0);
    Pump();
    EXPECT_TRUE(platform::testing::SeenTexts(tabs_).empty());
}

TEST_F(Tabs, WithoutASkinTextsStay) {
    core_.has_skin = false;
    tabs_.Invalidate();
    Pump();
    EXPECT_EQ(platform::testing::SeenTexts(tabs_).size(), 2U);
}

class Tips : public TabsAndTips {
protected:
    Tips() { tip_.Create(controls::kEmptyDialog, &parent_); }

    CRect Place() const {
        CRect place;
        tip_.GetWindowRect(&place);
        return place;
    }
    std::vector<std::string> Lines() {
        Pump();
        std::vector<std::string> lines;
        for (const auto& text : platform::testing::SeenTexts(tip_)) lines.push_back(text.utf8);
        return lines;
    }
    void ShowItems() {
        TipItem items[] = {{11, "one"}, {22, "two"}, {33, "three"}};
        tip_.SetItems(items, 3);
        tip_.ShowItems(CPoint(400, 300), 0);
        Pump();
    }

    CToolTip tip_;
};

TEST_F(Tips, StandAboveOrBelowThePointAndOnTheScreen) {
    tip_.ShowText("first\r\n\r\nthird\r\nno line", CPoint(400, 300), 0);
    EXPECT_EQ(Lines(), (std::vector<std::string>{"first", "third"}));
    EXPECT_EQ(Place().left, 400);
    EXPECT_EQ(Place().bottom, 298);
    const int width = Place().Width();
    // The same text changes nothing.
    tip_.ShowText("first\r\n\r\nthird\r\nno line", CPoint(10, 10), 0);
    EXPECT_EQ(Place().left, 400);
    tip_.Hide();
    EXPECT_FALSE(tip_.IsWindowVisible());
    tip_.ShowText("first\r\n\r\nthird\r\nno line", CPoint(1270, 300), 1280);
    EXPECT_EQ(Place().right, 1280);
    tip_.Hide();
    tip_.ShowTextBelow("first\r\n\r\nthird\r\nno line", CPoint(400, 300), 0);
    EXPECT_EQ(Place().TopLeft(), CPoint(400, 320));
    tip_.Hide();
    tip_.ShowTextBelow("first\r\n\r\nthird\r\nno line", CPoint(400, 300), 2);
    EXPECT_EQ(Place().left, 400 - width - 2);
    tip_.ShowText("", CPoint(0, 0), 0);
    EXPECT_FALSE(tip_.IsWindowVisible());
}

TEST_F(Tips, TakeNoFocusAndMayLeaveTheirParent) {
    const HWND focus = ::GetFocus();
    tip_.ShowText("text\r\n", CPoint(900, 700), 0);
    EXPECT_EQ(::GetFocus(), focus);
    EXPECT_EQ(Place().left, 900);
    EXPECT_TRUE(tip_.IsWindowVisible());
}

TEST_F(Tips, SurviveTextsOfAnyLength) {
    tip_.ShowText("no line end", CPoint(100, 100), 0);
    EXPECT_EQ(Place().Size(), CSize(5, 2));
    std::string text;
    for (int i = 0; i < 1250; ++i) text += "ab\r\n";
    tip_.ShowText(text.c_str(), CPoint(100, 100), 0);
    // 4095 bytes hold 1023 whole lines; the text is the shown one only as it was cut.
    EXPECT_GT(Place().Height(), 5000);
    tip_.ShowText(text.substr(0, 4095).c_str(), CPoint(500, 100), 0);
    EXPECT_EQ(Place().left, 100);
    tip_.ShowText(nullptr, CPoint(0, 0), 0);
    EXPECT_FALSE(tip_.IsWindowVisible());
}

TEST_F(Tips, HideWhenThePointerIsElsewhere) {
    tip_.ShowText("text\r\n", CPoint(400, 300), 0);
    const CRect place = Place();
    tip_.HideIfOutside(place.left - 5, place.top, 6, 6);
    EXPECT_TRUE(tip_.IsWindowVisible());
    tip_.HideIfOutside(place.left - 8, place.top, 6, 6);
    EXPECT_FALSE(tip_.IsWindowVisible());
    tip_.ShowText("text\r\n", CPoint(400, 300), 0);
    MovePointer({place.left + 3, place.top + 3});
    Pump();
    EXPECT_FALSE(tip_.IsWindowVisible());
}

TEST_F(Tips, ItemsFollowThePointerAndReportAClick) {
    ShowItems();
    const CRect place = Place();
    EXPECT_EQ(place.left, 399);
    EXPECT_EQ(place.bottom, 299);
    const int line = (place.Height() - 4) / 3;
    MovePointer({place.left + 5, place.top + line + line / 2});
    Pump();
    const CClientDC dc(&tip_);
    EXPECT_EQ(dc.GetPixel(place.Width() - 4, line + line / 2), COLORREF{0xB4DDF0});
    EXPECT_EQ(dc.GetPixel(place.Width() - 4, line / 2), COLORREF{0xE7FFFF});
    platform::testing::ClickAt({place.left + 5, place.top + line + line / 2});
    EXPECT_EQ(parent_.items, std::vector<LPARAM>{22});
    EXPECT_FALSE(tip_.IsWindowVisible());
    // Hidden, the items are gone.
    tip_.ShowItems(CPoint(400, 300), 0);
    EXPECT_FALSE(tip_.IsWindowVisible());
}

TEST_F(Tips, LeavingHidesItems) {
    ShowItems();
    MovePointer({Place().left + 5, Place().top + 5});
    Pump();
    EXPECT_TRUE(tip_.IsWindowVisible());
    MovePointer({1200, 780});
    Pump();
    EXPECT_FALSE(tip_.IsWindowVisible());
    EXPECT_TRUE(parent_.items.empty());
}

TEST_F(Tips, TellTheReceiverThatWasNamed) {
    Listener other;
    tip_.SetNotify(other);
    ShowItems();
    platform::testing::ClickAt({Place().left + 5, Place().top + 5});
    EXPECT_EQ(other.items, std::vector<LPARAM>{11});
    EXPECT_TRUE(parent_.items.empty());
}

TEST_F(Tips, MayStandUnderThePointerUntilItLeaves) {
    tip_.SetHideOnMove(false);
    tip_.ShowText("text\r\n", CPoint(400, 300), 0);
    MovePointer({Place().left + 3, Place().top + 3});
    Pump();
    EXPECT_TRUE(tip_.IsWindowVisible());
    MovePointer({1200, 780});
    Pump();
    EXPECT_FALSE(tip_.IsWindowVisible());
}

TEST_F(Tips, RememberNothingOfTheTimeBeforeTheirWindow) {
    CToolTip tip;
    tip.ShowText("text\r\n", CPoint(400, 300), 0);
    tip.Create(controls::kEmptyDialog, &parent_);
    tip.ShowText("text\r\n", CPoint(400, 300), 0);
    EXPECT_TRUE(tip.IsWindowVisible());
}

TEST(ColorTags, AreReadFromTheLastTag) {
    const struct {
        const char* text;
        bool found;
        COLORREF color;
    } kCases[] = {
        {"<COLOR#255000000>", true, RGB(255, 0, 0)},
        {"a<COLOR#300001002>b", true, RGB(44, 1, 2)},
        {"<COLOR#001002003><COLOR#004005006>", true, RGB(4, 5, 6)},
        {"<COLOR#001002003><COLOR#00400500>", true, RGB(1, 2, 3)},
        {"<COLOR#<COLOR#001002003>", true, RGB(1, 2, 3)},
        {"<color#001002003>", false, 0},
        {"<COLOR#0010020034>", false, 0},
        {"<COLOR#001002003>\n", false, 0},
        {"", false, 0},
    };
    for (const auto& [text, found, color] : kCases) {
        COLORREF read = 0;
        EXPECT_EQ(ParseColorTag(text, read), found) << text;
        EXPECT_EQ(read, color) << text;
    }
    COLORREF untouched = 5;
    EXPECT_FALSE(ParseColorTag(nullptr, untouched));
    EXPECT_EQ(untouched, 5U);
    const std::string long_text = std::string(1000000, '<') + "<COLOR#001002003>";
    EXPECT_TRUE(ParseColorTag(long_text.c_str(), untouched));
}

TEST(ColorTags, AgreeWithTheExpressionOnRandomTexts) {
    const std::regex expression(R"(.*<COLOR#(\d{3})(\d{3})(\d{3})>.*)");
    std::mt19937 random(7);
    const char* const kPieces[] = {"<COLOR#", "123", "045", "256", ">", "x", "\n", "\r", "9", "<"};
    int found = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto n = random() % 12; n > 0; --n) text += kPieces[random() % std::size(kPieces)];
        if (random() % 4 == 0) text += "<COLOR#123045256>";
        std::smatch match;
        const bool matches = std::regex_match(text, match, expression);
        COLORREF color = 0;
        ASSERT_EQ(ParseColorTag(text.c_str(), color), matches) << text;
        if (!matches) continue;
        ++found;
        const auto part = [&](std::size_t i) { return std::atoi(match[i].str().c_str()) & 0xFF; };
        ASSERT_EQ(color, RGB(part(1), part(2), part(3))) << text;
    }
    EXPECT_GT(found, 200);
}

}  // namespace
}  // namespace tests
