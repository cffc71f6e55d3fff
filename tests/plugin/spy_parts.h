#pragma once

#include <string>
#include <vector>

#include "orderentry/panel_parts.h"

namespace tests {

/// Empty pages for a panel, which write down what the panel asks of them, each line with its name
/// in front.
class SpyParts : public PanelParts {
public:
    SpyParts(std::string name, std::vector<std::string>& log) : name_(std::move(name)), log_(log) {}

    bool Create(PanelPart part, CWnd* parent) override;
    CWnd& Window(PanelPart part) override { return pages_[static_cast<int>(part)]; }
    void Connect(HWND) override {}
    void ShowFunds(double available, double open_profit) override;
    void SetContract(const CZebContract* contract) override;
    void RefreshPositions() override { Log("positions"); }
    void ShowOrders(const CZebOrder* orders, int count) override;

private:
    void Log(const std::string& line) { log_.push_back(name_ + " " + line); }

    std::string name_;
    std::vector<std::string>& log_;
    CWnd pages_[4];
};

}  // namespace tests
