#pragma once

#include <array>
#include <string>

#include "platform/toolkit/toolkit.h"

/// Ten volumes to choose from, for a volume edit.
class CKeyBoardDlgVolume : public CDialog {
public:
    static constexpr UINT IDD = 10109;
    static constexpr int kPresets[] = {10008, 10009, 10021, 10027, 10023,
                                       10028, 10029, 10030, 10046, 10047};
    static constexpr int kBackspace = 1054;
    using Presets = std::array<std::string, 10>;

    ~CKeyBoardDlgVolume() override;

    /// Empty ones make empty keys, which do nothing.
    void SetPresets(const Presets& presets) { m_presets = presets; }
    bool HasPresets() const;
    /// Opens it at the lower left corner of `anchor`, of the edit when that is null.
    void Open(CWnd& edit, const CWnd* anchor = nullptr);

    /// The edit has lost the focus; a press on a key is no reason to go.
    void HideUnlessPointedAt();

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override { ShowWindow(SW_HIDE); }
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void OnDrawItem(int id, LPDRAWITEMSTRUCT item);
    DECLARE_MESSAGE_MAP()

private:
    void ShowCaptions();
    void OnPreset(int id);
    void OnBackspace();

    Presets m_presets;
    HWND m_hOwner = nullptr;
};
