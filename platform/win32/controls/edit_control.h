#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/controls/edit_layout.h"
#include "platform/win32/controls/edit_text.h"

namespace winbase {

/// The edit control: what it holds is an EditText, where characters stand an EditLayout. This class
/// turns messages into changes of both and tells the parent. A rich edit differs in what it tells
/// and in its own messages, see RichEditControl.
///
/// Positions in messages count characters.
class EditControl {
public:
    EditControl(HWND window, LineEnds ends);
    virtual ~EditControl();
    EditControl(const EditControl&) = delete;
    EditControl& operator=(const EditControl&) = delete;

    /// The window procedures of the classes "Edit" and "RichEdit20A".
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    virtual LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

protected:
    /// Whether the text changed bit by bit, by typing or by EM_REPLACESEL, or was set as a whole.
    enum class ChangeKind { kPart, kWhole };
    /// Before the changed text is shown and after it.
    virtual void TellUpdate(ChangeKind kind);
    virtual void TellChange(ChangeKind kind);
    virtual void TellSelection() {}
    virtual void TellTooLong() { Tell(EN_MAXTEXT); }
    virtual void TellPainting() {}
    virtual bool CanGrow(const Codes& inserted, std::size_t* room) const;
    virtual COLORREF Ground(HDC dc, HBRUSH* brush) const;

    void Tell(int code) const;
    bool HasStyle(DWORD style) const { return (Style() & style) != 0; }
    DWORD Style() const { return static_cast<DWORD>(GetWindowLongA(window_, GWL_STYLE)); }
    bool multi_line() const { return text_.line_ends() != LineEnds::kSingleLine; }

    // Changes
    void SetText(const char* bytes);
    /// Puts the characters in place of the selection as far as they fit, and tells.
    void Insert(Codes inserted);
    void Erase(std::size_t from, std::size_t to);
    void Select(std::size_t anchor, std::size_t caret);
    void MoveCaret(std::size_t position, bool extend);
    void AfterChange(ChangeKind kind);

    // Layout
    RECT TextArea() const;
    void Relayout();
    void ScrollToCaret();
    void ScrollTo(int first_line);
    void UpdateScrollBar();
    void Repaint();
    POINT PointOf(std::size_t position) const;
    std::size_t PositionAt(POINT point) const;
    int VisibleLines() const;
    int LineLeft(const TextLine& line) const;

    HWND window_;
    EditText text_;
    CharacterWidths widths_;
    EditLayout layout_;
    HFONT font_ = nullptr;
    std::size_t limit_ = 30000;
    bool modified_ = false;
    bool focused_ = false;
    bool selecting_ = false;
    bool caret_shown_ = false;
    int first_line_ = 0;
    int scroll_x_ = 0;
    int wanted_x_ = -1;  ///< where Up and Down aim, -1 when another key came between
    unsigned char lead_byte_ = 0;
    char16_t mask_ = 0;
    bool in_dialog_ = false;  ///< a dialog's loop asked for the keys that the edit wants

private:
    LRESULT TextMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT EditMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT LineMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT MouseMessage(UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT GetText(char* bytes, std::size_t size) const;
    void GetSelection(WPARAM wParam, LPARAM lParam, LRESULT* result) const;
    void SetSelection(LONG from, LONG to);
    LRESULT GetLine(std::size_t index, char* buffer) const;
    LRESULT LineIndex(LONG line) const;
    LRESULT LineLength(LONG position) const;
    bool Undo();
    void SetFont(HFONT font, bool redraw);
    void SetMask(char16_t mask);
    void GainFocus();
    void LoseFocus();
    void Size();

    void Scroll(int code, int position);
    void Wheel(WPARAM wParam);

    void KeyDown(WPARAM key);
    /// What the keys of a dialog do in lines of text, which otherwise get them all.
    bool DialogKey(WPARAM key, bool shift, bool control);
    void NavigationKey(WPARAM key, bool shift, bool control);
    void DeleteKey(bool shift, bool control);
    void MoveLines(int lines, bool extend);
    void Character(unsigned char byte);
    void ControlCharacter(unsigned char byte);
    void NewLine();
    void Copy() const;
    void Cut();
    void Paste();

    void Press(POINT point, bool extend);
    void SelectWord(POINT point);
    void DragTo(POINT point);
    void Release();

    void Paint();
    void PaintFrame(HBRUSH inside) const;
    void PaintLines(HDC dc);
    void PaintLine(HDC dc, const TextLine& line, int y);
    void PaintRun(HDC dc, std::size_t from, std::size_t to, int x, int y, bool selected);
    void PaintCharacters(HDC dc, std::u16string_view codes, int x, int y) const;
    void PaintMask(HDC dc, std::size_t count, int x, int y);
    void PaintCaret(HDC dc);
    void StartCaret();
    static void CALLBACK BlinkCaret(HWND window, UINT message, UINT_PTR id, DWORD time);
};

}  // namespace winbase
