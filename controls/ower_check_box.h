#pragma once

#include "controls/ower_radio.h"

/// A check box of the radio's make: a click inverts it and posts WM_CHECK_CHANGED to its parent.
class COwerCheckBox : public COwerRadio {
protected:
    HBITMAP GetSkin() override;
    void OnClick() override;
};
