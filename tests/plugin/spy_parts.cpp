#include "tests/plugin/spy_parts.h"

#include "plugin/funds_text.h"

namespace tests {

bool SpyParts::Create(PanelPart part, CWnd* parent) {
    return Window(part).CreateEx(0, nullptr, "", WS_CHILD, CRect(0, 0, 1, 1), parent, 0) != FALSE;
}

void SpyParts::ShowFunds(double available, double open_profit) {
    Log("funds " + MoneyText(available) + " " + MoneyText(open_profit));
}

void SpyParts::SetContract(const CZebContract* contract) {
    Log(contract != nullptr ? "contract " + std::string(contract->szContract) : "no contract");
}

void SpyParts::ShowOrders(const CZebOrder* orders, int count) {
    Log(std::to_string(count) + " orders" + (orders == nullptr ? " at null" : ""));
}

}  // namespace tests
