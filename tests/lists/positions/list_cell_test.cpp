#include "lists/list_cell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/text/bounded_text.h"
#include "platform/toolkit/toolkit.h"

namespace {

constexpr COLORREF kPaper = RGB(255, 255, 255);

/// A sheet of white paper with a cell in its middle.
class CellSheet : public ::testing::Test {
protected:
    static constexpr int kWidth = 120;
    static constexpr int kHeight = 22;
    static constexpr RECT kCell{30, 0, 90, kHeight};

    CellSheet() {
        const CClientDC desktop(nullptr);
        sheet_.CreateCompatibleDC(nullptr);
        paper_.CreateCompatibleBitmap(desktop, kWidth, kHeight);
        font_.CreateFont(12, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, "宋体");
    }

    /// Columns of pixels from the first one with ink to the last; empty without any.
    CRect Ink(const char* text, UINT format) {
        const toolkit::ScopedSelect paper(sheet_, paper_.m_hObject);
        const toolkit::ScopedSelect font(sheet_, font_.m_hObject);
        sheet_.FillSolidRect(CRect(0, 0, kWidth, kHeight), kPaper);
        ::SetBkMode(sheet_, TRANSPARENT);
        lists::CellText cell{.format = format};
        text::CopyText(cell.text, text);
        lists::DrawCellText(sheet_, cell, kCell, nullptr);
        CRect ink(kWidth, 0, 0, 0);
        for (int x = 0; x < kWidth; ++x) {
            for (int y = 0; y < kHeight; ++y) {
                if (::GetPixel(sheet_, x, y) == kPaper) continue;
                ink.left = std::min(ink.left, LONG{x});
                ink.right = x + 1;
            }
        }
        return ink;
    }

private:
    CDC sheet_;
    CBitmap paper_;
    CFont font_;
};

// A character of 12 pixels between blanks of 120 each: what does not fit is cut where the format
// says, so that the cell shows the middle or an end without ink.
TEST_F(CellSheet, CutsATextThatDoesNotFitAsItsFormatPlacesIt) {
    const std::string blanks(20, ' ');
    const std::string text = blanks + "国" + blanks;
    const CRect middle = Ink(text.c_str(), lists::kCenterFormat);
    EXPECT_GE(middle.left, 54);
    EXPECT_LE(middle.right, 66);
    EXPECT_GE(middle.Width(), 8);
    EXPECT_LT(Ink(text.c_str(), lists::kLeftFormat).Width(), 0);
    EXPECT_LT(Ink(text.c_str(), lists::kRightFormat).Width(), 0);
}

TEST_F(CellSheet, KeepsTextsInTheirCell) {
    const std::string text(100, 'W');
    for (const UINT format : {lists::kLeftFormat, lists::kCenterFormat, lists::kRightFormat}) {
        const CRect ink = Ink(text.c_str(), format);
        EXPECT_GE(ink.left, kCell.left) << format;
        EXPECT_LE(ink.right, kCell.right) << format;
        EXPECT_GE(ink.Width(), 50) << format;
    }
}

}  // namespace
