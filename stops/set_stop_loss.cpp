#include "stops/set_stop_loss.h"

BOOL GOLDSetStopLoss::OnInitDialog() {
    CDialog::OnInitDialog();
    constexpr int kPriceLists[] = {kStopTriggerPrice, kProfitTriggerPrice, kStopOrderPrice,
                                   kProfitOrderPrice};
    for (const int id : kPriceLists) {
        for (const char* word : {"对手价", "最新价", "挂单价", "涨停价", "跌停价"}) {
            SendDlgItemMessage(id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(word));
        }
    }
    for (const char* word : {"当日有效", "永久有效"}) {
        SendDlgItemMessage(kValidity, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(word));
    }
    return TRUE;
}
