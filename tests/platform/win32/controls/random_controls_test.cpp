// All control classes under random input, messages and notifications answered rashly. Nothing is
// expected but that they stand: run under sanitizers, a long run finds what no table of cases does.
//
// RANDOM_STEPS in the environment sets the length, RANDOM_SEED the start.

#include <cstdlib>
#include <random>

#include "tests/platform/win32/controls/control_frame.h"
// The controls' header needs the types of the one above.
#include <commctrl.h>
#include <richedit.h>

#include "platform/testing/input.h"

namespace tests {
namespace {

constexpr int kUsualSteps = 6000;
constexpr int kUsualSeed = 20131008;

struct Kind {
    const char* window_class;
    DWORD style;
};
constexpr Kind kKinds[] = {
    {"Edit", ES_AUTOHSCROLL | WS_BORDER},
    {"Edit", ES_RIGHT | ES_NUMBER},
    {"Edit", ES_PASSWORD | ES_AUTOHSCROLL},
    {"Edit", ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL},
    {"Edit", ES_MULTILINE | ES_READONLY | ES_CENTER},
    {"RichEdit20A", ES_MULTILINE | WS_VSCROLL},
    {"ListBox", LBS_NOTIFY | WS_VSCROLL | WS_BORDER},
    {"ListBox", LBS_NOTIFY | LBS_SORT | LBS_NOINTEGRALHEIGHT},
    {"ListBox", LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS},
    {"ComboBox", CBS_DROPDOWNLIST | WS_VSCROLL},
    {"ComboBox", CBS_DROPDOWN | CBS_AUTOHSCROLL},
    {UPDOWN_CLASS, 0},
    {WC_TABCONTROL, 0},
    {DATETIMEPICK_CLASS, 0},
    {WC_TREEVIEW, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT},
    {"Button", BS_AUTOCHECKBOX | BS_NOTIFY},
    {"Button", BS_AUTORADIOBUTTON},
    {"Button", BS_OWNERDRAW},
    {"Static", SS_NOTIFY},
};
constexpr int kKindCount = static_cast<int>(std::size(kKinds));

int FromEnvironment(const char* name, int usual) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::atoi(text) : usual;
}

class RandomControls : public ControlFrame {
protected:
    void SetUp() override {
        ControlFrame::SetUp();
        random_.seed(static_cast<unsigned>(FromEnvironment("RANDOM_SEED", kUsualSeed)));
        handler_ = [this](UINT message, WPARAM, LPARAM, LRESULT& answer) {
            if (message == WM_CLOSE) return true;
            const bool told = message == WM_COMMAND || message == WM_NOTIFY ||
                              message == WM_DRAWITEM || message == WM_VSCROLL;
            if (!told) return false;
            ++told_;
            answer = Pick(10) == 0 ? Pick(64) : 0;
            if (depth_ < 3 && Pick(30) == 0) {
                ++depth_;
                Act();
                --depth_;
            }
            return true;
        };
    }

    int Pick(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
    bool Flip() { return Pick(2) == 0; }
    HWND& Any() { return controls_[static_cast<std::size_t>(Pick(kKindCount))]; }
    std::string Text() {
        std::string text(static_cast<std::size_t>(Pick(30)), ' ');
        for (char& byte : text) {
            byte = static_cast<char>(Flip() ? 1 + Pick(255) : "ab1 \r\n\t-"[Pick(8)]);
        }
        return text;
    }

    void Create(int index) {
        const Kind& kind = kKinds[index];
        controls_[static_cast<std::size_t>(index)] =
            CreateWindowExA(Pick(4) == 0 ? WS_EX_CLIENTEDGE : 0, kind.window_class, Text().c_str(),
                            kind.style | WS_CHILD | WS_VISIBLE, index % 5 * 95, index / 5 * 80, 90,
                            70, frame_, reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(index + 1)),
                            GetModuleHandleA(nullptr), nullptr);
    }

    void Step() {
        const auto index = Pick(kKindCount);
        if (!IsWindow(controls_[static_cast<std::size_t>(index)])) Create(index);
        if (Pick(3) == 0) {
            Act();
        } else {
            Input();
        }
        if (Pick(20) == 0) platform::testing::PumpFor(static_cast<DWORD>(Pick(60)));
    }

    void Input() {
        using namespace platform::testing;
        const HWND control = Any();
        const int x = Pick(110) - 10;
        const int y = Pick(160) - 10;
        switch (Pick(9)) {
            case 0: Click(control, x, y); return;
            case 1: DoubleClick(control, x, y); return;
            case 2: Click(control, x, y, Button::kRight); return;
            case 3: Drag(ScreenPoint(control, x, y), ScreenPoint(control, y, x)); return;
            case 4: Wheel(Pick(5) - 2); return;
            case 5: SetFocus(control); return;
            case 6: Type(Text().c_str()); return;
            default: {
                static constexpr BYTE kKeys[] = {
                    VK_LEFT, VK_RIGHT,    VK_UP,     VK_DOWN, VK_HOME,   VK_END,    VK_PRIOR,
                    VK_NEXT, VK_BACK,     VK_DELETE, VK_F4,   VK_RETURN, VK_ESCAPE, VK_SPACE,
                    VK_ADD,  VK_SUBTRACT, 'A',       'X',     'V',       'Z'};
                Key(kKeys[Pick(20)], static_cast<Modifier>(Pick(4)));
                return;
            }
        }
    }

    void Act() {
        HWND& control = Any();
        switch (Pick(9)) {
            case 0: SetWindowTextA(control, Text().c_str()); return;
            case 1: EnableWindow(control, Pick(3) != 0); return;
            case 2: ShowWindow(control, Pick(3) != 0 ? SW_SHOWNA : SW_HIDE); return;
            case 3:
                SetWindowPos(control, nullptr, 0, 0, Pick(120), Pick(120),
                             SWP_NOMOVE | SWP_NOZORDER);
                return;
            case 4:
                if (Pick(4) == 0) DestroyWindow(control);
                return;
            case 5: ChangeTree(); return;
            default: Message(control); return;
        }
    }

    // Every message gets a text where it may take one and room where it may answer.
    void Message(HWND control) {
        static constexpr UINT kWithText[] = {EM_REPLACESEL,   LB_ADDSTRING,    LB_INSERTSTRING,
                                             LB_FINDSTRING,   LB_SELECTSTRING, CB_ADDSTRING,
                                             CB_INSERTSTRING, CB_FINDSTRING,   CB_SELECTSTRING};
        static constexpr UINT kWithNumbers[] = {
            EM_SETSEL,       EM_LIMITTEXT,    EM_UNDO,         EM_SETREADONLY,  EM_LINEFROMCHAR,
            EM_LINELENGTH,   EM_LINEINDEX,    EM_LINESCROLL,   EM_POSFROMCHAR,  EM_CHARFROMPOS,
            WM_CUT,          WM_COPY,         WM_PASTE,        WM_VSCROLL,      WM_CHAR,
            LB_DELETESTRING, LB_SETCURSEL,    LB_RESETCONTENT, LB_SETTOPINDEX,  LB_SETITEMDATA,
            CB_DELETESTRING, CB_SETCURSEL,    CB_RESETCONTENT, CB_SHOWDROPDOWN, CB_SETEDITSEL,
            TCM_SETCURSEL,   TCM_SETCURFOCUS, TCM_DELETEITEM,  WM_CANCELMODE,   WM_SETFONT,
            BM_SETCHECK,     BM_SETSTATE,     BM_CLICK,        LB_SETITEMHEIGHT};
        if (Pick(3) == 0) {
            const std::string text = Text();
            const UINT message = kWithText[Pick(9)];
            const int place = Pick(12) - 1;
            SendMessageA(control, message, static_cast<WPARAM>(place),
                         reinterpret_cast<LPARAM>(text.c_str()));
            return;
        }
        const UINT message = kWithNumbers[Pick(34)];
        const int low = message == WM_SETFONT ? 0 : Pick(40) - 2;
        const int high = Pick(40) - 2;
        SendMessageA(control, message, static_cast<WPARAM>(low), high);
        InsertTab();
    }

    void InsertTab() {
        if (Pick(10) != 0) return;
        std::string text = Text();
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.data();
        SendMessageA(controls_[12], TCM_INSERTITEMA, static_cast<WPARAM>(Pick(5)),
                     reinterpret_cast<LPARAM>(&item));
    }

    void ChangeTree() {
        const HWND tree = controls_[14];
        const auto relative = [&](WPARAM relation, LPARAM from) {
            return SendMessageA(tree, TVM_GETNEXTITEM, relation, from);
        };
        LPARAM item = relative(Flip() ? TVGN_CARET : TVGN_ROOT, 0);
        for (int steps = Pick(4); steps > 0 && item != 0; --steps) {
            const LPARAM next = relative(static_cast<WPARAM>(Pick(10)), item);
            if (next != 0) item = next;
        }
        std::string text = Text();
        TVINSERTSTRUCTA insert{};
        insert.hParent = reinterpret_cast<HTREEITEM>(item);
        insert.hInsertAfter = Flip() ? TVI_FIRST : TVI_LAST;
        insert.item.mask = TVIF_TEXT | TVIF_CHILDREN;
        insert.item.pszText = text.data();
        insert.item.cChildren = Pick(2);
        switch (Pick(5)) {
            case 0: SendMessageA(tree, TVM_SELECTITEM, TVGN_CARET, item); return;
            case 1: SendMessageA(tree, TVM_EXPAND, static_cast<WPARAM>(Pick(4)), item); return;
            case 2: SendMessageA(tree, TVM_DELETEITEM, 0, Pick(8) == 0 ? 0 : item); return;
            default:
                SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert));
                return;
        }
    }

    std::mt19937 random_;
    HWND controls_[kKindCount] = {};
    int depth_ = 0;
    int told_ = 0;
};

TEST_F(RandomControls, Stand) {
    const int steps = FromEnvironment("RANDOM_STEPS", kUsualSteps);
    for (int index = 0; index < kKindCount; ++index) Create(index);
    for (int step = 0; step < steps; ++step) Step();
    EXPECT_TRUE(IsWindow(frame_));
    EXPECT_GT(told_, steps / 4) << "what was done did not arrive";
}

}  // namespace
}  // namespace tests
