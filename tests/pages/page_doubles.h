#pragma once

#include <string>
#include <vector>

#include "orderentry/panel_parts.h"
#include "orderentry/report_pane.h"

/// Stand-ins for what containers get from other folders: plain windows that write down what is
/// asked of them.
namespace tests {

class ReportDouble : public ReportPane {
public:
    bool Create(CWnd* parent) override {
        return window_.CreateEx(0, "Static", "lists", WS_CHILD, CRect(0, 0, 10, 10), parent, 0) !=
               FALSE;
    }
    CWnd& Window() override { return window_; }
    void Connect(const ContractSource& contracts, HWND row_receiver) override {
        source = &contracts;
        receiver = row_receiver;
    }
    void SetPage(int page) override { calls.push_back("page " + std::to_string(page)); }
    void OnQuote(unsigned int packed, const JSDyn1&) override {
        calls.push_back("quote " + std::to_string(packed));
    }
    int CloseVolume(const char*, char) const override { return 0; }
    double HoldLoss() const override { return 0; }

    const ContractSource* source = nullptr;
    HWND receiver = nullptr;
    std::vector<std::string> calls;

private:
    CWnd window_;
};

class PanelPartsDouble : public PanelParts {
public:
    /// What the doubles do, readable after the panel that owns them has gone.
    struct Log {
        std::vector<std::string> calls;
        HWND windows[4] = {};
        HWND receiver = nullptr;
    };
    explicit PanelPartsDouble(Log& log) : log_(log) {}

    bool Create(PanelPart part, CWnd* parent) override {
        CWnd& window = Window(part);
        window.CreateEx(0, "Static", "", WS_CHILD, CRect(0, 0, 10, 10), parent, 0);
        log_.windows[static_cast<int>(part)] = window;
        return true;
    }
    CWnd& Window(PanelPart part) override { return windows_[static_cast<int>(part)]; }
    void Connect(HWND row_receiver) override { log_.receiver = row_receiver; }
    void ShowFunds(double available, double open_profit) override {
        log_.calls.push_back("funds " + std::to_string(available) + " " +
                             std::to_string(open_profit));
    }
    void SetContract(const CZebContract* contract) override {
        log_.calls.push_back(contract != nullptr ? std::string("contract ") + contract->szContract
                                                 : "no contract");
    }
    void RefreshPositions() override { log_.calls.push_back("positions"); }
    void ShowOrders(const CZebOrder*, int count) override {
        log_.calls.push_back("orders " + std::to_string(count));
    }

private:
    Log& log_;
    CWnd windows_[4];
};

}  // namespace tests
