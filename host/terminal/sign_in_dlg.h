#pragma once

#include <functional>
#include <string>

#include "host/terminal/ids.h"
#include "platform/toolkit/toolkit.h"

namespace terminal {

/// Asks for the paper account's name and password. It stays open, above the frame, until the
/// session begins; texts are GBK.
class SignInDlg : public CDialog {
public:
    static constexpr int kAccount = 20101;
    static constexpr int kPassword = 20102;
    static constexpr int kMessage = 20103;
    static constexpr int kHint = 20104;

    ~SignInDlg() override { DestroyWindow(); }

    BOOL CreateHidden(CWnd* owner);
    /// Shows it over its owner with the cursor where something is still to be typed.
    void Open(const std::string& account, const std::string& message, const std::string& hint);
    void Close();
    /// While an answer is awaited nothing can be pressed.
    void SetBusy(bool busy);
    /// What the core says, good or bad.
    void SetMessage(const std::string& message);

    std::function<void(const std::string& account, const std::string& password)> on_sign_in;

protected:
    void OnOK() override;
    void OnCancel() override { Close(); }
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    DECLARE_MESSAGE_MAP()

private:
    std::string TextOf(int id) const;

    bool busy_ = false;
};

}  // namespace terminal
