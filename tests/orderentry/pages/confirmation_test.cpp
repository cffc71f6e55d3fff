#include <gmock/gmock.h>

#include <cstring>
#include <limits>

#include "orderentry/prompt_insert_order_dlg.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "tests/orderentry/pages/page_frame.h"

namespace tests {
namespace {

using platform::testing::AnswerNextBox;
using platform::testing::SeenBox;

class Confirmation : public PageTest {
protected:
    Confirmation() {
        text::CopyText(request_.szContract, "Au(T+D)");
        text::CopyText(request_.szPrice, "300.02");
        request_.cDirection = '0';
        request_.cOffset = '0';
        request_.cOrderType = '0';
        request_.nVolume = 3;
    }

    CInsertOrderRequest request_{};
};

TEST_F(Confirmation, AsksUnlessTheParametersSayNo) {
    const struct {
        int no_order;
        int no_close;
        bool close;
        bool asked;
    } kCases[] = {
        {0, 0, false, true}, {0, 1, true, true},  {1, 0, false, false},
        {1, 0, true, true},  {1, 1, true, false}, {0, 1, false, true},
    };
    for (const auto& [no_order, no_close, close, asked] : kCases) {
        core_.trade_param.bNoOrderConfirm = no_order;
        core_.trade_param.bNoCloseConfirm = no_close;
        SeenBox box;
        if (asked) AnswerNextBox(IDCANCEL, &box);
        EXPECT_EQ(ConfirmOrder(&page_, request_, close), !asked);
        EXPECT_EQ(box.shown, asked);
    }
}

TEST_F(Confirmation, ShowsTheOrderInTheColorOfItsSide) {
    struct Seen {
        std::vector<platform::testing::SeenText> texts;
    } static seen;
    platform::testing::WhenIdle(
        [](void*) { seen.texts = platform::testing::SeenTexts(::GetActiveWindow()); }, nullptr);
    SeenBox box;
    AnswerNextBox(IDOK, &box);
    EXPECT_TRUE(ConfirmOrder(&page_, request_, false));
    EXPECT_EQ(box.title, text::Utf8FromGbk("下单提示"));
    std::vector<std::string> lines;
    for (const auto& line : seen.texts) {
        if (line.color == COLORREF{0x0A0AF4}) lines.push_back(text::GbkFromUtf8(line.utf8));
    }
    EXPECT_THAT(lines, testing::UnorderedElementsAre("合约代码：Au(T+D)", "买卖方向：买",
                                                     "开平方向：开仓", "委托价格：300.02",
                                                     "委托数量：3手", "委托方式：限价"));
}

TEST_F(Confirmation, HasRoomForEveryOrder) {
    std::memset(request_.szContract, 'W', sizeof request_.szContract);
    request_.szContract[1] = '&';
    text::CopyText(request_.szPrice, "123456789012.00");
    request_.cOrderType = 'b';
    request_.nVolume = std::numeric_limits<int>::max();
    static std::vector<std::string> lines;
    lines.clear();
    platform::testing::WhenIdle(
        [](void*) {
            CWnd& dialog = *CWnd::FromHandle(::GetActiveWindow());
            for (const auto& seen : platform::testing::SeenTexts(dialog)) {
                if (seen.color == COLORREF{0x0A0AF4}) lines.push_back(seen.utf8);
            }
            const CClientDC dc(&dialog);
            const toolkit::ScopedSelect select(dc, *dialog.GetFont());
            for (const int id :
                 {CPromptInsertOrderDlg::kContract, CPromptInsertOrderDlg::kOrderType}) {
                char text[128] = {};
                CRect room;
                dialog.GetDlgItemText(id, text, sizeof text);
                dialog.GetDlgItem(id)->GetClientRect(&room);
                EXPECT_LE(dc.GetTextExtent(text, static_cast<int>(std::strlen(text))).cx,
                          room.Width());
            }
        },
        nullptr);
    AnswerNextBox(IDOK);
    ConfirmOrder(&page_, request_, false);
    EXPECT_THAT(lines, testing::Contains(text::Utf8FromGbk("合约代码：W&") + std::string(30, 'W')));
    EXPECT_THAT(lines,
                testing::Contains(text::Utf8FromGbk("委托方式：最优五档立即成交剩余转限价")));
}

}  // namespace
}  // namespace tests
