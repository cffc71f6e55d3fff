#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace winbase {

/// Text as characters of code page 936: one unit a character, a byte below 0x100 or a pair of
/// bytes. A lone lead byte stays a byte, so that any text comes back as it went in.
using Codes = std::u16string;

Codes CodesFromBytes(std::string_view bytes);
std::string BytesFromCodes(std::u16string_view codes);
/// Bytes that BytesFromCodes gives.
std::size_t ByteLength(std::u16string_view codes);

/// How a text tells line ends apart.
enum class LineEnds {
    kSingleLine,  ///< none: all characters stand in one line
    kPairs,       ///< CR LF as two characters, as a plain edit keeps them
    kReturns      ///< one CR, as a rich edit keeps them
};

/// What an edit holds: characters, selection, one step of undo. No window, no measures.
class EditText {
public:
    explicit EditText(LineEnds ends) : ends_(ends) {}

    const Codes& codes() const { return codes_; }
    std::size_t size() const { return codes_.size(); }
    LineEnds line_ends() const { return ends_; }

    std::size_t selection_start() const { return anchor_ < caret_ ? anchor_ : caret_; }
    std::size_t selection_end() const { return anchor_ < caret_ ? caret_ : anchor_; }
    bool has_selection() const { return anchor_ != caret_; }
    std::size_t caret() const { return caret_; }
    std::size_t anchor() const { return anchor_; }
    std::u16string_view selected() const;

    /// Positions behind the end count as the end; a caret never stands inside CR LF.
    void Select(std::size_t anchor, std::size_t caret);
    void MoveCaret(std::size_t position, bool extend);

    /// The whole text anew: caret at the start, nothing to undo. Line ends are kept in this text's
    /// way.
    void Assign(std::string_view bytes);
    /// The whole text, with CR LF for every line end of a rich edit.
    std::string Bytes() const;

    /// Puts characters in place of the selection and the caret behind them.
    void Replace(const Codes& inserted);
    /// Line ends of a foreign text in this text's way; a single line ends at the first of them.
    Codes Convert(std::string_view bytes) const;

    bool can_undo() const { return undo_.has_value(); }
    bool Undo();
    void ForgetUndo() { undo_.reset(); }

    /// One character before or behind, line ends as one step.
    std::size_t Before(std::size_t position) const;
    std::size_t Behind(std::size_t position) const;
    /// The start of the word before the position, or of the next one behind it.
    std::size_t WordBefore(std::size_t position) const;
    std::size_t WordBehind(std::size_t position) const;

private:
    struct Change {
        std::size_t position;
        std::size_t inserted;
        Codes removed;
    };

    bool InsidePair(std::size_t position) const;

    LineEnds ends_;
    Codes codes_;
    std::size_t anchor_ = 0;
    std::size_t caret_ = 0;
    std::optional<Change> undo_;
};

}  // namespace winbase
