#pragma once

#include "platform/toolkit/toolkit.h"

/// Enters a password by mouse, its keys in a new order each time it is opened. The edit that it
/// serves stays the one that holds the text.
class CKeyBoardDlg : public CDialog {
public:
    static constexpr UINT IDD = 10108;
    static constexpr int kFirstDigit = 10050;
    static constexpr int kFirstLetter = 10060;
    static constexpr int kBackspace = 10086;
    static constexpr int kCase = 10087;
    static constexpr int kHide = 10088;
    static constexpr int kEnter = 10089;
    static constexpr int kDigits = 10;
    static constexpr int kLetters = 26;

    ~CKeyBoardDlg() override;

    /// Opens it below the edit, at its right end. Opened for another edit before, it moves on.
    void Open(CWnd& edit);
    void Place(CPoint corner);
    /// Hides it and tells the edit that reading its text is over.
    void Close();

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override { Close(); }
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    void Shuffle();
    void ShowCaptions();
    void OnKey(int id);
    void OnBackspace();
    void OnCase();
    void OnEnter();

    bool m_bUpper = false;
    char m_szDigits[kDigits] = {};
    char m_szLetters[kLetters] = {};
    HWND m_hOwner = nullptr;  ///< the edit that it serves; null when closed
};
