#pragma once

#include "platform/toolkit/toolkit.h"

/// The login: server, account, passwords, progress.
class CGoldLoginDlg : public CDialog {
public:
    static constexpr UINT IDD = 10016;
    static constexpr int kServers = 10007;
    static constexpr int kAccountType = 10002;
    static constexpr int kAccountTypeLabel = 10001;
    static constexpr int kAccountLabel = 10003;
    static constexpr int kAccount = 10006;
    static constexpr int kKeepAccount = 10036;
    static constexpr int kKeepAccountLabel = 10039;
    static constexpr int kPasswordLabel = 10004;
    static constexpr int kPassword = 10020;
    static constexpr int kPasswordKeys = 10008;
    static constexpr int kLinePasswordLabel = 10044;
    static constexpr int kLinePassword = 10022;
    static constexpr int kLinePasswordKeys = 10010;
    static constexpr int kPasswordType = 10043;
    static constexpr int kDynamicPassword = 10021;
    static constexpr int kDynamicPasswordKeys = 10009;
    static constexpr int kStatus = 10041;

    explicit CGoldLoginDlg(CWnd* parent = nullptr) : CDialog(IDD, parent) {}

protected:
    BOOL OnInitDialog() override;

    void OnSize(UINT type, int cx, int cy);
    DECLARE_MESSAGE_MAP()

private:
    void PlaceButtons();
};
