#pragma once

#include "orderentry/price_edit_ex.h"
#include "orderentry/price_edit_rich.h"

/// The order page's price: a number or a word, with minus and plus.
class CComboPriceEdit : public CPriceEditEx {
public:
    using CPriceEditEx::CPriceEditEx;

    std::unique_ptr<CWnd> CreateInnerEdit(int id) override;
    void OnClickOutside(int x, int y) override;
    virtual void SetListWidth(int width);
    virtual bool IsListOpen() const;
    /// Attaches a number to the list's row with this text.
    virtual void SetListOption(const char* text, int value);
    /// Sets the text and marks its row in the list.
    virtual void SelectWord(const char* text);

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    CPriceEditRich* m_pPrice = nullptr;  ///< the inner edit
};
