#pragma once

/// Who must hear that the preset stops of a contract have changed: every page that shows them. The
/// main dialog tells the order page and the panels.
class StopCheckListener {
public:
    virtual ~StopCheckListener() = default;
    virtual void RefreshStopChecks() = 0;
};
