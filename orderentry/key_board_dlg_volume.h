#pragma once

#include "platform/toolkit/toolkit.h"

/// Ten volumes to choose from, for a volume edit.
class CKeyBoardDlgVolume : public CDialog {
public:
    static constexpr UINT IDD = 10109;
    static constexpr int kPresets[] = {10008, 10009, 10021, 10027, 10023,
                                       10028, 10029, 10030, 10046, 10047};
    static constexpr int kBackspace = 1054;

protected:
    void OnOK() override {}
    void OnCancel() override {}
};
