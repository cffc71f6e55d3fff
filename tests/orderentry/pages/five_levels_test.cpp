#include <cmath>
#include <limits>

#include "orderentry/stock5_bs_dlg.h"
#include "tests/orderentry/pages/page_frame.h"

namespace tests {
namespace {

using platform::testing::SeenText;

JSDyn1 Book() {
    JSDyn1 quote{};
    quote.dPreClose = 300.00;
    quote.dLast = 301.50;
    quote.fUpperLimit = 330.0F;
    quote.fLowerLimit = 270.0F;
    for (int i = 0; i < 5; ++i) {
        quote.dAsk[i] = 301.00 + i;
        quote.nAskVolume[i] = static_cast<std::uint32_t>(10 + i);
        quote.dBid[i] = 300.00 - i;
        quote.nBidVolume[i] = static_cast<std::uint32_t>(20 + i);
    }
    quote.dBid[4] = 0;
    quote.nBidVolume[4] = 0;
    return quote;
}

class FiveLevelView : public PageTest {
protected:
    FiveLevelView() {
        key_ = static_cast<unsigned>(host_.AddSymbol("Au(T+D)", 12, 1, 2));
        view_.Create(CStock5BSDlg::IDD, &page_);
        view_.MoveWindow(0, 0, 180, 220);
        view_.ShowWindow(SW_SHOW);
        target_.Create("EDIT", "", WS_CHILD | WS_VISIBLE, CRect(200, 10, 300, 30), &page_, 1);
        view_.SetTarget(target_);
        view_.OnQuote(key_, Book());
        platform::testing::Pump();
    }
    ~FiveLevelView() override { view_.DestroyWindow(); }

    SeenText Find(const std::string& utf8) {
        for (const SeenText& text : platform::testing::SeenTexts(view_)) {
            if (text.utf8 == utf8) return text;
        }
        ADD_FAILURE() << utf8 << " is not shown";
        return {};
    }
    std::string TargetAfterClickOn(const std::string& utf8) {
        target_.SetWindowText("keep");
        const RECT place = Find(utf8).rect;
        platform::testing::Click(view_, place.left + 2, place.top + 2);
        return TextOf(target_);
    }

    unsigned key_ = 0;
    CStock5BSDlg view_;
    CWnd target_;
};

TEST_F(FiveLevelView, ShowsTheBookFromTheWorstAskDown) {
    const struct {
        const char* text;
        int top;
        COLORREF color;
    } kShown[] = {
        {"305.00", 6, 0x2020E8},   {"301.00", 70, 0x2020E8},  {"14", 6, 0xE91717},
        {"300.00", 91, 0x848484},  {"297.00", 139, 0x209820}, {"20", 91, 0x1717E9},
        {"301.50", 175, 0x2020E8}, {"330.00", 175, 0x2020E8}, {"0.50%", 192, 0x2020E8},
        {"270.00", 192, 0x209820},
    };
    for (const auto& [text, top, color] : kShown) {
        const SeenText seen = Find(text);
        EXPECT_EQ(seen.rect.top, top) << text;
        EXPECT_EQ(seen.color, color) << text;
    }
    EXPECT_EQ(Find("301.00").rect.left, 50);
    EXPECT_EQ(Find("14").rect.right, 170);
    EXPECT_EQ(Find("301.50").rect.left, 40);
    EXPECT_EQ(Find("270.00").rect.left, 117);
}

TEST_F(FiveLevelView, ASymbolWithoutANameTellsNoDigits) {
    view_.OnQuote(static_cast<unsigned>(host_.AddSymbol("", 20, 2, 0)), Book());
    platform::testing::Pump();
    EXPECT_EQ(Find("301.500").rect.left, 40);
}

TEST_F(FiveLevelView, ClicksTakePricesOver) {
    EXPECT_EQ(TargetAfterClickOn("301.00"), "301.00");
    EXPECT_EQ(TargetAfterClickOn("305.00"), "305.00");
    EXPECT_EQ(TargetAfterClickOn("297.00"), "297.00");
    EXPECT_EQ(TargetAfterClickOn("301.50"), "301.50");
    // Limits are no targets, nor is an empty level.
    EXPECT_EQ(TargetAfterClickOn("330.00"), "keep");
    EXPECT_EQ(TargetAfterClickOn("-"), "keep");
    view_.SetTarget(nullptr);
    EXPECT_EQ(TargetAfterClickOn("301.00"), "keep");
}

TEST_F(FiveLevelView, ThePriceUnderThePointerStandsOut) {
    const RECT price = Find("302.00").rect;
    const auto ground = [&] {
        const CClientDC dc(&view_);
        return dc.GetPixel(price.left - 1, price.top - 1);
    };
    const COLORREF plain = ground();
    platform::testing::MovePointer(
        platform::testing::ScreenPoint(view_, price.left + 3, price.top + 3));
    platform::testing::Pump();
    EXPECT_EQ(ground(), COLORREF{0x232323});
    platform::testing::MovePointer({1200, 780});
    platform::testing::Pump();
    EXPECT_EQ(ground(), plain);
}

TEST(FiveLevelTexts, FollowDigitsAndSurviveAnyNumber) {
    using orderentry::LevelsOf;
    EXPECT_STREQ(LevelsOf(Book(), 0).asks[0].price, "301");
    EXPECT_STREQ(LevelsOf(Book(), 3).last, "301.500");
    // No host, no digits: three.
    EXPECT_STREQ(LevelsOf(Book(), -1).last, "301.500");
    JSDyn1 quote = Book();
    quote.dLast = 299.40;
    EXPECT_STREQ(LevelsOf(quote, 2).change, "-0.20%");
    EXPECT_EQ(LevelsOf(quote, 2).last_color, COLORREF{0x209820});
    // An empty level is below every base.
    EXPECT_EQ(LevelsOf(quote, 2).bids[4].color, COLORREF{0x209820});
    EXPECT_STREQ(LevelsOf(quote, 2).bids[4].volume, "-");
    quote.dPreClose = 0;
    EXPECT_STREQ(LevelsOf(quote, 2).change, "inf%");
    quote.dAsk[0] = std::numeric_limits<double>::quiet_NaN();
    quote.dBid[0] = std::numeric_limits<double>::max();
    EXPECT_STREQ(LevelsOf(quote, 2).asks[0].price, "-");
    EXPECT_EQ(std::string(LevelsOf(quote, 2).bids[0].price).size(), 31U);
}

}  // namespace
}  // namespace tests
