#pragma once

#include <string>

#include "platform/types.h"

// What the text of a function reply says: fields with '|' between them, the fourth the outcome.

/// Finds where the fields behind the outcome begin. Null when the outcome is not 'Y', which a reply
/// with fewer fields never is.
const char* AcceptedFields(const char* reply);

struct ReportOrder {
    std::string challenge;    ///< what the next client report answers to
    UINT millisToReport = 0;  ///< three quarters of the server's interval, so as not to be late
};

/// Reads the order for the next client report out of the fields behind the outcome. Bad numbers
/// give the shortest or the longest period.
ReportOrder ReadReportOrder(const char* fields);
