#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/toolkit/toolkit.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

namespace tests {

inline constexpr COLORREF kStageGround = RGB(0xF3, 0xF5, 0xF8);
inline constexpr COLORREF kBrushGround = RGB(0xE0, 0xF0, 0xD0);
inline constexpr COLORREF kStageText = RGB(0x10, 0x20, 0x60);

/// The parent of small controls: a ground of one colour, a brush for statics, and a log of what the
/// controls tell ("radio 12", "check 12", "tree ...").
class Stage : public CWnd {
public:
    Stage();
    ~Stage() override;

    COLORREF ground = kStageGround;
    std::vector<std::string> events;

    /// What was told since the last call, joined by "; ".
    std::string Heard();
    /// Shows another ground, controls included.
    void ChangeGround(COLORREF color);

protected:
    BOOL OnEraseBkgnd(CDC* dc);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    LRESULT OnRadio(WPARAM wParam, LPARAM lParam);
    LRESULT OnCheck(WPARAM wParam, LPARAM lParam);
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    DECLARE_MESSAGE_MAP()

private:
    void Tell(const char* what, WPARAM window, LPARAM id);

    CBrush brush_{kBrushGround};
};

/// A stage with a core behind the controls.
class StageTest : public ::testing::Test {
protected:
    StageTest();

    static COLORREF PixelOf(const CWnd& window, int x, int y);
    /// Paints a point of the window from outside.
    static void Smear(const CWnd& window, int x, int y, COLORREF color);

    RecordingCore core_;
    FrontEndDoors doors_{core_};
    Stage stage_;
};

}  // namespace tests
