#include "lists/order_status_rules.h"

const char* OrderStatusText(char status) {
    switch (status) {
        case '0': return "正在申报";
        case '1': return "已申报";
        case '2': return "部分成交";
        case '3': return "全部成交";
        case '4': return "已撤";
        case '5': return "部成部撤";
        case '6': return "待撤";
        case '7': return "部成待撤";
        case 'e': return "废单";
        case 'p': return "本地开盘触发";
        default: return "未知";
    }
}

bool IsCancellable(char status) { return status == '0' || status == '1' || status == '2'; }

int OrderVolume(const CZebOrder& order) {
    if (order.nVolume != 0) return order.nVolume;
    // A broken record may hold any two numbers; their sum wraps rather than being undefined.
    return static_cast<int>(static_cast<std::uint32_t>(order.nFilled) +
                            static_cast<std::uint32_t>(order.nRemaining));
}
