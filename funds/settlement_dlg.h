#pragma once

#include <string>

#include "platform/toolkit/toolkit.h"

/// The page of the daily settlement report: asks for the report of a day, shows it, saves it.
class CSettlementDlg : public CDialog {
public:
    static constexpr UINT IDD = 10030;
    static constexpr int kDate = 10032;
    static constexpr int kQuery = 10046;
    static constexpr int kSave = 10044;
    static constexpr int kReport = 10045;

    /// Asks for the report of a day (YYYYMMDD), or for the latest by an empty text. Does nothing
    /// while an answer is still awaited.
    void Query(const char* date);
    /// Takes the reply to a query: what stands behind its fourth field.
    void LoadReport(const char* text);
    /// The margin call value of the last report, "--" before the first.
    std::string GetMarginCall() const { return m_strMarginCall; }

protected:
    void OnOK() override {}
    void OnCancel() override {}

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    void OnQuery();
    DECLARE_MESSAGE_MAP()

private:
    std::string m_strMarginCall = "--";
    bool m_bReplyReceived = true;
};
