#include "platform/text/gbk.h"
#include "tests/orderentry/pages/order_page_frame.h"

namespace tests {
namespace {

class OrderPageLook : public OrderPageTest {};

TEST_F(OrderPageLook, LabelsTakeTheColorOfTheSide) {
    HostSelects("Au(T+D)");
    const auto color_of = [&](const char* label) {
        for (const auto& seen : platform::testing::SeenTexts(Order())) {
            if (seen.utf8 == text::Utf8FromGbk(label)) return seen.color;
        }
        return COLORREF{1};
    };
    EXPECT_EQ(color_of("委托价格:"), COLORREF{0x0000FF});
    Press(CGoldBsDlg::kSell);
    for (const char* label :
         {"合约名称:", "买卖方向:", "开平状态:", "委托价格:", "最大可开:", "委托数量:"}) {
        EXPECT_EQ(color_of(label), COLORREF{0x019300}) << label;
    }
    EXPECT_EQ(color_of("平仓"), COLORREF{0xC46D2D});
    // What the page paints over inside of a composite is painted again.
    EXPECT_NE(color_of("对手价"), COLORREF{1});
}

TEST_F(OrderPageLook, KeepsItsPlacesWhateverTheSize) {
    const auto place = [this](int id) {
        CRect rect;
        ::GetWindowRect(Control(id), &rect);
        Order().ScreenToClient(&rect);
        return rect;
    };
    for (const int height : {420, 260, 40}) {
        base_.MoveWindow(0, 0, 900, height);
        CRect page;
        Order().GetWindowRect(&page);
        base_.ScreenToClient(&page);
        EXPECT_EQ(page, CRect(0, 4, 220, height));
        const CRect label = place(CGoldBsDlg::kDirectionLabel);
        const CPoint row(label.right, label.bottom);
        EXPECT_EQ(place(CGoldBsDlg::kSell), CRect(CPoint(row.x + 50, label.top), CSize(45, 18)));
        EXPECT_EQ(place(CGoldBsDlg::kNet), CRect(row + CSize(100, 10), CSize(45, 18)));
        EXPECT_EQ(place(CGoldBsDlg::kStops), CRect(row + CSize(35, 117), CSize(70, 18)));
        EXPECT_EQ(place(CGoldBsDlg::kAutoStop), CRect(row + CSize(78, 117), CSize(70, 18)));
        CRect price;
        Inner(CGoldBsDlg::kPrice).GetParent()->GetWindowRect(&price);
        Order().ScreenToClient(&price);
        EXPECT_EQ(price, place(CGoldBsDlg::kPrice));
        EXPECT_FALSE(Visible(CGoldBsDlg::kPrice) || Visible(CGoldBsDlg::kAutoStop));
    }
}

TEST_F(OrderPageLook, EveryPriceWordFitsItsBox) {
    HostSelects("Au(T+D)");
    for (const int row : {0, 1, 2, 3, 4, 7}) {
        core_.trade_param.nDefaultPrice = static_cast<std::uint8_t>(row);
        Order().ReloadSettings();
        CWnd& edit = Inner(CGoldBsDlg::kPrice);
        const std::string word = TextOf(edit);
        CRect room;
        edit.SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
        const CClientDC dc(&edit);
        const toolkit::ScopedSelect select(dc, *edit.GetFont());
        // The caret stands behind it.
        EXPECT_LT(dc.GetTextExtent(word.c_str(), static_cast<int>(word.size())).cx, room.Width())
            << text::Utf8FromGbk(word);
    }
}

}  // namespace
}  // namespace tests
