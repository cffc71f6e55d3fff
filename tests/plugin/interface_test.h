#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit/toolkit.h"
#include "plugin/qm_interface_ui.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

/// A class of cores; the front end knows no more of it than this.
class StepDataMap {};

namespace tests {

/// A core event that waited for the main dialog. Its block is freed already.
struct TakenEvent {
    WPARAM wParam;
    LPARAM lParam;
    bool has_block;
    std::string payload;  ///< all bytes of the block

    /// "40006[1480]": what is in wParam, with the size of the block, or "2(-1)" with the number.
    std::string Summary() const;
    /// The text at an offset of the block, up to its NUL.
    std::string_view Text(std::size_t offset = 0) const;
    int Number() const;
};

/// The exported class in a host's window, over a core and a host that record. The session is on,
/// the main dialog is made by Start.
class InterfaceTest : public ::testing::Test {
protected:
    InterfaceTest();
    ~InterfaceTest() override;

    void Start();
    HWND Main() { return ui->GetMainDlg() != nullptr ? ui->GetMainDlg()->GetSafeHwnd() : nullptr; }
    /// Takes the waiting events before the main dialog sees them.
    std::vector<TakenEvent> TakeEvents();
    /// The same in a line.
    std::string TakeSummary();
    /// The only one that waits.
    TakenEvent TakeEvent();
    /// Creates a panel below the frame.
    unsigned int AddPanel() { return ui->CreatePanel(0, 0, 0, 0, frame); }
    /// Makes a contract known to core and host.
    void AddContract(const char* code, int market, int number);

    RecordingHost host;
    RecordingCore core;
    FrontEndDoors doors{core, host};
    CWnd frame;
    std::optional<QmInterfaceUI> ui{std::in_place};
    const int blocks_at_first;
    int blocks_in_use = 0;  ///< of the pages, after Start
};

/// An error with a code of 0 is none.
CZebError MakeError(int code, std::string_view text);

inline HWND WindowOf(unsigned int number) {
    return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(number));
}

}  // namespace tests
