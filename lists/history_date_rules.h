#pragma once

#include "platform/system.h"

/// A day as the core takes it: 20260309 is the ninth of March.
constexpr int DateNumber(const SYSTEMTIME& day) {
    return (day.wYear * 100 + day.wMonth) * 100 + day.wDay;
}
