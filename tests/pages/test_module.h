#pragma once

#include <span>

#include "platform/toolkit/toolkit.h"

/// The test program as a module of the toolkit that holds the pages' templates.
namespace tests {

/// One for each folder of pages.
std::span<const toolkit::TemplateTable> PageTables();

/// A top-level window for pages to stand in; shown, so that its pages can be.
class PageFrame : public CWnd {
public:
    explicit PageFrame(int width = 1000, int height = 640);
    ~PageFrame() override { DestroyWindow(); }

    /// Makes the client area that big.
    void Resize(int width, int height);
};

}  // namespace tests
