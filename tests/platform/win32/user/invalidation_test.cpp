// What is painted, erased and validated, in which order, for each way to ask for it.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/message_log.h"

namespace tests {

namespace {

constexpr RECT kChildPlace{10, 10, 90, 50};
constexpr RECT kPart{5, 5, 25, 25};

std::string RectText(const RECT& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "-" +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
}

HWND g_frame = nullptr;
HWND g_child = nullptr;

// Paints nothing, and remarks what was to be painted.
bool RemarkPaint(MessageLog& log, const std::string& role, UINT message, WPARAM, LPARAM,
                 LRESULT& answer) {
    if (role == "lazy" && message == WM_ERASEBKGND) {
        answer = 0;
        return true;
    }
    if (message != WM_PAINT) return false;
    const HWND window = role == "frame" ? g_frame : g_child;
    PAINTSTRUCT paint{};
    BeginPaint(window, &paint);
    log.Remark(RectText(paint.rcPaint) + (paint.fErase ? " unerased" : ""));
    EndPaint(window, &paint);
    answer = 0;
    return true;
}

class Invalidation : public ::testing::Test {
protected:
    explicit Invalidation(DWORD frame_style = WS_OVERLAPPEDWINDOW) {
        SetCursorPos(1200, 780);
        PumpQueue();
        log_.SetHandler(RemarkPaint);
        g_frame = frame_ = log_.Create("frame", frame_style, {100, 100, 400, 300});
        ShowWindow(frame_, SW_SHOW);
        g_child = child_ = log_.Create("child", WS_CHILD | WS_VISIBLE, kChildPlace, frame_, 7);
        log_.PumpAndTake();
        log_.Only({WM_PAINT, WM_ERASEBKGND});
        RECT client{};
        GetClientRect(frame_, &client);
        whole_ = RectText(client);
    }

    std::string After(const std::function<void()>& action) {
        action();
        return log_.PumpAndTake();
    }

    std::string Fetched(const std::string& role, const std::string& rect, bool erased = true) {
        return "*" + role + " WM_PAINT* [" + (erased ? role + " WM_ERASEBKGND; " : "") + "_" +
               rect + "_]";
    }
    std::string Sent(const std::string& role, const std::string& rect, bool erased = true) {
        return role + " WM_PAINT [" + (erased ? role + " WM_ERASEBKGND; " : "") + "_" + rect + "_]";
    }

    MessageLog log_;
    HWND frame_;
    HWND child_;
    std::string whole_;
    const std::string child_whole_ = "0,0-80,40";
};

TEST_F(Invalidation, ChildrenGoAlongAndAreAlwaysErased) {
    const struct {
        const char* name;
        std::function<void()> action;
        std::string expected;
    } kCases[] = {
        {"the frame, no erase", [&] { InvalidateRect(frame_, nullptr, FALSE); },
         Fetched("frame", whole_, false) + "; " + Fetched("child", child_whole_)},
        {"the frame, erase", [&] { InvalidateRect(frame_, nullptr, TRUE); },
         Fetched("frame", whole_) + "; " + Fetched("child", child_whole_)},
        {"a part over the child's corner", [&] { InvalidateRect(frame_, &kPart, TRUE); },
         Fetched("frame", "5,5-25,25") + "; " + Fetched("child", "0,0-15,15")},
        {"a part of the child", [&] { InvalidateRect(child_, &kPart, TRUE); },
         Fetched("child", "5,5-25,25")},
        {"the child without, then a part with erase",
         [&] {
             InvalidateRect(child_, nullptr, FALSE);
             InvalidateRect(child_, &kPart, TRUE);
         },
         Fetched("child", child_whole_)},
        {"a part with, then the child without erase",
         [&] {
             InvalidateRect(child_, &kPart, TRUE);
             InvalidateRect(child_, nullptr, FALSE);
         },
         Fetched("child", child_whole_)},
        {"the child, then validated",
         [&] {
             InvalidateRect(child_, nullptr, TRUE);
             ValidateRect(child_, nullptr);
             EXPECT_FALSE(GetUpdateRect(child_, nullptr, FALSE));
         },
         ""},
        {"an empty rectangle",
         [&] {
             const RECT empty{5, 5, 5, 25};
             InvalidateRect(frame_, &empty, TRUE);
         },
         ""},
        {"a rectangle outside",
         [&] {
             const RECT outside{2000, 5, 2010, 25};
             InvalidateRect(frame_, &outside, TRUE);
         },
         ""},
    };
    for (const auto& [name, action, expected] : kCases) EXPECT_EQ(After(action), expected) << name;
}

TEST_F(Invalidation, UpdateWindowPaintsTheTreeAtOnceAndNothingElse) {
    const std::string both = Sent("frame", whole_) + "; " + Sent("child", child_whole_);
    const auto update = [&](HWND invalid, HWND updated) {
        InvalidateRect(invalid, nullptr, TRUE);
        UpdateWindow(updated);
        log_.Remark("returned");
    };
    EXPECT_EQ(After([&] { update(frame_, frame_); }), both + "; _returned_");
    EXPECT_EQ(After([&] { update(child_, frame_); }), Sent("child", child_whole_) + "; _returned_");
    EXPECT_EQ(After([&] { update(frame_, child_); }),
              Sent("child", child_whole_) + "; _returned_; " + Fetched("frame", whole_));
    EXPECT_EQ(After([&] { UpdateWindow(frame_); }), "");
}

TEST_F(Invalidation, RedrawWindowDoesWhatItsFlagsSay) {
    const auto redraw = [&](UINT flags) {
        RedrawWindow(frame_, nullptr, nullptr, flags);
        log_.Remark("returned");
    };
    const std::string later =
        Fetched("frame", whole_, false) + "; " + Fetched("child", child_whole_);
    const struct {
        const char* name;
        UINT flags;
        std::string expected;
    } kCases[] = {
        {"invalidate", RDW_INVALIDATE, "_returned_; " + later},
        {"all children", RDW_INVALIDATE | RDW_ALLCHILDREN, "_returned_; " + later},
        {"update now", RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW,
         Sent("frame", whole_) + "; _returned_; " + Fetched("child", child_whole_)},
        {"erase now", RDW_INVALIDATE | RDW_ERASE | RDW_ERASENOW,
         "frame WM_ERASEBKGND; _returned_; " + later},
        {"erase now, nothing invalid", RDW_ERASENOW, "_returned_"},
        {"no children, now", RDW_INVALIDATE | RDW_NOCHILDREN | RDW_UPDATENOW,
         Sent("frame", whole_, false) + "; _returned_"},
        {"internal paint", RDW_INTERNALPAINT,
         "_returned_; " + Fetched("frame", "0,0-0,0", false) + "; " +
             Fetched("child", "0,0-0,0", false)},
    };
    for (const auto& [name, flags, expected] : kCases) {
        EXPECT_EQ(After([&, wanted = flags] { redraw(wanted); }), expected) << name;
    }
    EXPECT_EQ(After([&] {
                  InvalidateRect(child_, nullptr, TRUE);
                  RedrawWindow(frame_, nullptr, nullptr, RDW_VALIDATE | RDW_ALLCHILDREN);
              }),
              "");
}

TEST_F(Invalidation, AValidatedPartLeavesTheRest) {
    EXPECT_EQ(After([&] {
                  const RECT upper{0, 0, 80, 20};
                  InvalidateRect(child_, nullptr, TRUE);
                  ValidateRect(child_, &upper);
                  RECT update{};
                  EXPECT_TRUE(GetUpdateRect(child_, &update, FALSE));
                  EXPECT_EQ(RectText(update), "0,20-80,40");
              }),
              Fetched("child", "0,20-80,40"));
}

TEST_F(Invalidation, WhatIsHiddenIsNotInvalid) {
    EXPECT_EQ(After([&] { ShowWindow(child_, SW_HIDE); }),
              "frame WM_ERASEBKGND; " + Fetched("frame", "10,10-90,50", false));
    EXPECT_EQ(After([&] { InvalidateRect(child_, nullptr, TRUE); }), "");
    EXPECT_EQ(After([&] { ShowWindow(child_, SW_SHOW); }),
              "child WM_ERASEBKGND; " + Fetched("child", child_whole_, false));
    EXPECT_EQ(After([&] {
                  SendMessageA(child_, WM_SETREDRAW, FALSE, 0);
                  EXPECT_EQ(static_cast<DWORD>(GetWindowLongA(child_, GWL_STYLE)) & WS_VISIBLE, 0U);
                  InvalidateRect(child_, nullptr, TRUE);
                  SendMessageA(child_, WM_SETREDRAW, TRUE, 0);
              }),
              "");
}

TEST_F(Invalidation, ARefusedEraseIsToldToThePainter) {
    DestroyWindow(child_);
    g_child = child_ = log_.Create("lazy", WS_CHILD | WS_VISIBLE, kChildPlace, frame_, 7);
    log_.PumpAndTake();
    EXPECT_EQ(After([&] { InvalidateRect(child_, nullptr, TRUE); }),
              Fetched("lazy", child_whole_ + " unerased"));
    EXPECT_EQ(After([&] { InvalidateRect(child_, nullptr, FALSE); }),
              Fetched("lazy", child_whole_, false));
}

TEST_F(Invalidation, ScrolledWindowsPaintWhatCameInAndMoveTheirChildren) {
    log_.Only({WM_PAINT, WM_ERASEBKGND, WM_MOVE});
    RECT client{};
    GetClientRect(frame_, &client);
    const RECT strip{0, client.bottom - 10, client.right, client.bottom};
    EXPECT_EQ(After([&] { ScrollWindow(frame_, 0, -10, nullptr, nullptr); }),
              "child WM_MOVE(10,0); " + Fetched("frame", RectText(strip)));
}

TEST_F(Invalidation, PaintingOutsideOfAPaintMessageFindsNothing) {
    PAINTSTRUCT paint{};
    BeginPaint(child_, &paint);
    EXPECT_EQ(RectText(paint.rcPaint), "0,0-0,0");
    EndPaint(child_, &paint);
    const HDC dc = GetDC(child_);
    InvalidateRect(child_, nullptr, TRUE);
    ReleaseDC(child_, dc);
    EXPECT_EQ(log_.PumpAndTake(), Fetched("child", child_whole_));
}

class InvalidationOfClippers : public Invalidation {
protected:
    InvalidationOfClippers() : Invalidation(WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN) {}
};

TEST_F(InvalidationOfClippers, ChildrenAreLeftOut) {
    EXPECT_EQ(After([&] { InvalidateRect(frame_, nullptr, TRUE); }), Fetched("frame", whole_));
    const RECT under_child{15, 15, 25, 25};
    EXPECT_EQ(After([&] { InvalidateRect(frame_, &under_child, TRUE); }),
              Fetched("frame", "0,0-0,0", false));
    EXPECT_EQ(After([&] {
                  InvalidateRect(child_, nullptr, TRUE);
                  InvalidateRect(frame_, nullptr, TRUE);
              }),
              Fetched("frame", whole_) + "; " + Fetched("child", child_whole_));
}

TEST_F(Invalidation, OverlappingChildrenArePaintedEachForItself) {
    log_.Create("B", WS_CHILD | WS_VISIBLE, {50, 20, 130, 60}, frame_, 8);
    log_.SetHandler(nullptr);
    log_.PumpAndTake();
    EXPECT_EQ(After([&] { InvalidateRect(child_, nullptr, TRUE); }),
              "*child WM_PAINT* [child WM_ERASEBKGND]");
    EXPECT_EQ(After([&] { ShowWindow(child_, SW_HIDE); }),
              "frame WM_ERASEBKGND; B WM_ERASEBKGND; *frame WM_PAINT*; *B WM_PAINT*");
}

// Pixels: a child keeps out of the siblings above it only when it asks for it, its parent keeps
// out of its children only when it asks for it.
TEST_F(Invalidation, ClippingStylesDecideWhoseAreaIsDrawnOn) {
    log_.SetHandler(nullptr);
    const HWND above = log_.Create("above", WS_CHILD | WS_VISIBLE, {10, 10, 50, 50}, frame_, 8);
    SetWindowPos(above, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    log_.PumpAndTake();
    const auto drawn = [](HWND window, HWND seen_in, POINT at) {
        const HDC dc = GetDC(window);
        const RECT all{0, 0, 200, 200};
        const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
        FillRect(dc, &all, brush);
        DeleteObject(brush);
        ReleaseDC(window, dc);
        const HDC read = GetDC(seen_in);
        const bool reached = GetPixel(read, at.x, at.y) == RGB(1, 2, 3);
        ReleaseDC(seen_in, read);
        RedrawWindow(GetParent(seen_in), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        return reached;
    };
    EXPECT_TRUE(drawn(child_, above, {5, 5}));
    SetWindowLongA(child_, GWL_STYLE, static_cast<LONG>(WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS));
    EXPECT_FALSE(drawn(child_, above, {5, 5}));
    EXPECT_TRUE(drawn(frame_, child_, {60, 20}));
    SetWindowLongA(frame_, GWL_STYLE,
                   static_cast<LONG>(WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN));
    EXPECT_FALSE(drawn(frame_, child_, {60, 20}));
}

}  // namespace

}  // namespace tests
