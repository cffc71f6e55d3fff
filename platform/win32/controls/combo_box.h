#pragma once

#include <windows.h>

#include <string>

namespace winbase {

// From the drop list to its combo: the marked row was picked; the list is to close unpicked.
inline constexpr UINT kComboPick = WM_USER + 0x3F0;
inline constexpr UINT kComboCancel = WM_USER + 0x3F1;

inline constexpr int kComboListId = 1000;
inline constexpr int kComboEditId = 1001;

/// The combo box, as a drop-down list or with an edit. Its rows live in the drop list, a list box
/// that pops up. The height that the window is given counts for field and open list together; the
/// field's own height follows the font.
class ComboBoxControl {
public:
    explicit ComboBoxControl(HWND window);
    ComboBoxControl(const ComboBoxControl&) = delete;
    ComboBoxControl& operator=(const ComboBoxControl&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

private:
    LRESULT ItemMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT FieldMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT InputMessage(UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    bool HasEdit() const { return edit_ != nullptr; }
    LRESULT List(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(list_, message, wParam, lParam);
    }
    int Current() const { return static_cast<int>(List(LB_GETCURSEL)); }
    std::string TextOf(int index) const;
    bool Tell(int code) const;  ///< false when the combo did not outlive the notification

    bool Create(const CREATESTRUCTA& create);
    void Layout();
    int FieldHeight() const;
    RECT ArrowRect() const;
    RECT FieldRect() const;
    void ChangePosition(WINDOWPOS& position);
    void SetFont(HFONT font, bool redraw);

    LRESULT SetCurrent(int index);
    LRESULT Remove(WPARAM index);
    void Reset();
    void ShowCurrentInEdit();
    void SetEditText(const char* text);
    LRESULT Text(UINT message, WPARAM wParam, LPARAM lParam);
    void EditCommand(int code);

    void Open();
    /// Hides the list and tells how it ended.
    enum class Ending { kPicked, kCancelled };
    void Close(Ending ending);
    void PlaceList();
    int ShownRows() const;  ///< of the open list: whole ones only, and no more than there are
    void Pick();

    bool Key(WPARAM key);  ///< true when the combo used it
    void MoveTo(int index);
    void Character(unsigned char byte);
    void GainFocus();
    void LoseFocus(HWND to);

    void Paint();
    void PaintField(HDC dc, const RECT& field);

    HWND window_;
    HWND list_ = nullptr;
    HWND edit_ = nullptr;
    HWND next_focus_ = nullptr;  ///< where the edit's focus goes
    WNDPROC edit_procedure_ = nullptr;
    HFONT font_ = nullptr;
    int dropped_height_ = 0;
    int dropped_width_ = 0;
    int field_height_ = 0;  ///< as set by CB_SETITEMHEIGHT, else 0
    bool open_ = false;
    bool focused_ = false;
    bool setting_text_ = false;  ///< changes of the edit are the combo's own
    bool typed_ = false;         ///< the edit's text came from the user since the last choice
};

}  // namespace winbase
