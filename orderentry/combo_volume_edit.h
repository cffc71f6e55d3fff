#pragma once

#include "orderentry/price_edit_ex.h"
#include "orderentry/rich_volume_edit.h"

/// The order page's volume, with minus and plus.
class CComboVolumeEdit : public CPriceEditEx {
public:
    using CPriceEditEx::CPriceEditEx;

    std::unique_ptr<CWnd> CreateInnerEdit(int id) override;
    /// Null before creation.
    CRichVolumeEdit* VolumeEdit() const { return m_pVolume; }

private:
    CRichVolumeEdit* m_pVolume = nullptr;  ///< the inner edit
};
