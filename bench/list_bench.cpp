// The list that a page paints, refreshed, scrolled and resized.

#include <cstring>
#include <vector>

#include "bench/ratio.h"
#include "bench/sample_list.h"
#include "controls/templates.h"

namespace {

using bench::kHeight;
using bench::kRowHeight;
using bench::kWidth;
using bench::MakeList;

constexpr std::size_t kBytes = std::size_t{kWidth} * kHeight * 4;

const toolkit::TemplateTable kTables[] = {controls::kTemplates};

CWinApp& App() {
    static CWinApp app("list_bench");
    return app;
}

std::vector<unsigned char>& Memory() {
    static std::vector<unsigned char> memory(kBytes);
    return memory;
}

// Keeps the compiler from dropping a write that nobody reads.
void Written(const void* memory) { asm volatile("" : : "r"(memory) : "memory"); }

RATIO("list.full_repaint_over_memset") {
    bench::List();
    return {[] { bench::RepaintList(); },
            [] {
                std::memset(Memory().data(), 0xFF, kBytes);
                Written(Memory().data());
            }};
}

RATIO("list.wheel_step_over_memmove") {
    COwerDrawListView& list = bench::List();
    return {[&list] {
                static int step = 0;
                // A screenful down, a screenful up.
                const int notch = step++ / 27 % 2 == 0 ? -WHEEL_DELTA : WHEEL_DELTA;
                list.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, notch), 0);
            },
            [] {
                constexpr std::size_t kRowBytes = std::size_t{kWidth} * kRowHeight * 4;
                std::memmove(Memory().data(), Memory().data() + kRowBytes, kBytes - kRowBytes);
                Written(Memory().data());
            }};
}

RATIO("list.set_row_count_1e6_over_10") {
    COwerDrawListView& many = MakeList(1'000'000);
    COwerDrawListView& few = MakeList(10);
    return {[&many] { many.SetRowCount(1'000'000, TRUE); }, [&few] { few.SetRowCount(10, TRUE); }};
}

}  // namespace

IMPLEMENT_MODULE(App(), kTables)
