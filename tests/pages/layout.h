#pragma once

#include <string>
#include <vector>

#include "platform/toolkit/toolkit.h"

/// What is wrong with the look of a page, found by its windows alone.
namespace tests {

/// "left,top-right,bottom"
std::string PlaceText(const RECT& place);

/// Two controls of one page that may lie over each other.
struct AllowedOverlap {
    int first;
    int second;
};

/// One line for each control that sticks out of the page, whose text does not fit, and for each two
/// visible ones that overlap. Group boxes and tab controls may hold others.
std::vector<std::string> LayoutFaults(HWND page, const std::vector<AllowedOverlap>& allowed = {});

}  // namespace tests
