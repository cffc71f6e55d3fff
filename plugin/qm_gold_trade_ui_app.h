#pragma once

#include "platform/toolkit/toolkit.h"

/// The library's application object. There is one in the process; it lives under the host's loop.
class CQmGoldTradeUIApp : public CWinApp {
public:
    CQmGoldTradeUIApp();

    /// Readies the system's object services for this thread and reads the start settings from the
    /// current directory.
    BOOL InitInstance() override;
};

/// Starts the library once: remembers the application's directory, makes the controls of pages
/// known and runs InitInstance. Later calls do nothing.
///
/// Every door through which a host may come first calls it: SetCallBack, SetUICallBack and the
/// construction of the exported class. Loading the library does not, since a linked library loads
/// before its host can choose the directory. Belongs to the windows' thread.
void EnsureStarted();
