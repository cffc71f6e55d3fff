#include <cassert>
#include <vector>

#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/queue.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

// Requests that are being handled, the innermost last.
std::vector<Request*> g_handling;

void Serve(Request& request) {
    g_handling.push_back(&request);
    LRESULT result = 0;
    if (request.call) {
        request.delivered = true;
        request.call();
    } else if (Window* window = LookUp(request.window)) {
        request.delivered = true;
        result = CallProcedure(window, request.message, request.wParam, request.lParam);
    }
    g_handling.pop_back();
    TheQueue().Answer(request, result);
}

std::shared_ptr<Request> MakeRequest(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto request = std::make_shared<Request>();
    request->window = window;
    request->message = message;
    request->wParam = wParam;
    request->lParam = lParam;
    return request;
}

enum class Sent { kAnswered, kTimeout, kNoWindow };

Sent SendFromThread(HWND window, UINT message, WPARAM wParam, LPARAM lParam, int millis,
                    LRESULT& result) {
    if (!IsWindow(window)) return Sent::kNoWindow;
    const auto request = MakeRequest(window, message, wParam, lParam);
    TheQueue().Send(request);
    if (!TheQueue().WaitForAnswer(*request, millis)) return Sent::kTimeout;
    result = request->result;
    return request->delivered ? Sent::kAnswered : Sent::kNoWindow;
}

}  // namespace

void ServeRequests() {
    while (const auto request = TheQueue().NextRequest()) Serve(*request);
}

LRESULT CallProcedure(Window* window, UINT message, WPARAM wParam, LPARAM lParam) {
    const WindowLock lock(window);
    const WNDPROC procedure = window->procedure;
    return procedure != nullptr ? procedure(window->handle, message, wParam, lParam) : 0;
}

void CallOnUiThread(const std::function<void()>& call) {
    assert(!IsUiThread() && "the user interface thread calls directly");
    const auto request = std::make_shared<Request>();
    request->call = call;
    TheQueue().Send(request);
    TheQueue().WaitForAnswer(*request, -1);
}

}  // namespace winbase

using namespace winbase;

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsUiThread()) {
        Window* const target = FindLive(window);
        return target != nullptr ? CallProcedure(target, message, wParam, lParam) : 0;
    }
    LRESULT result = 0;
    if (SendFromThread(window, message, wParam, lParam, -1, result) == Sent::kNoWindow) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    }
    return result;
}

LRESULT SendMessageTimeoutA(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                            [[maybe_unused]] UINT flags, UINT millis, PDWORD_PTR result) {
    assert((flags & ~UINT{SMTO_ABORTIFHUNG}) == 0 && "only SMTO_ABORTIFHUNG is supported");
    LRESULT answer = 0;
    if (IsUiThread()) {
        Window* const target = FindLive(window);
        if (target == nullptr) return FALSE;
        answer = CallProcedure(target, message, wParam, lParam);
    } else {
        const int patience = static_cast<int>(millis & 0x7FFFFFFF);
        const Sent sent = SendFromThread(window, message, wParam, lParam, patience, answer);
        if (sent == Sent::kNoWindow) return Fail(ERROR_INVALID_WINDOW_HANDLE);
        if (sent == Sent::kTimeout) return Fail(ERROR_TIMEOUT);
    }
    if (result != nullptr) *result = static_cast<DWORD_PTR>(answer);
    return TRUE;
}

BOOL SendNotifyMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsUiThread()) {
        Window* const target = FindLive(window);
        if (target == nullptr) return FALSE;
        CallProcedure(target, message, wParam, lParam);
        return TRUE;
    }
    if (!IsWindow(window)) return Fail(ERROR_INVALID_WINDOW_HANDLE);
    TheQueue().Send(MakeRequest(window, message, wParam, lParam));
    return TRUE;
}

BOOL InSendMessage() { return IsUiThread() && !g_handling.empty(); }

BOOL ReplyMessage(LRESULT result) {
    if (!InSendMessage()) return FALSE;
    TheQueue().Answer(*g_handling.back(), result);
    return TRUE;
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                        LPARAM lParam) {
    return procedure != nullptr ? procedure(window, message, wParam, lParam) : 0;
}
