#pragma once

/// A type by which hosts and pages may pass data of their own; the library makes none.
class CUIData {
public:
    CUIData() = default;
    virtual ~CUIData() = default;
    CUIData(const CUIData&) = default;
    CUIData& operator=(const CUIData&) = default;
};
