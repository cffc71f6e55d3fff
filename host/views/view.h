#pragma once

#include <string>

#include "controls/memory_surface.h"
#include "host/skin/palette.h"
#include "platform/toolkit/toolkit.h"

namespace views {

/// The terminal's type: one face, four sizes.
enum class Type { kDense, kLabel, kTitle, kFigure };

HFONT FontOf(Type type, bool bold = false);

/// Paints into a surface with the colours of a palette. Texts are GBK, cut at their rectangle.
class Painter {
public:
    Painter(HDC dc, const skin::Palette& palette) : colors(palette), dc_(dc) {}

    const skin::Palette& colors;

    HDC dc() const { return dc_; }
    void Fill(const RECT& rect, COLORREF color) const;
    void Frame(const RECT& rect, COLORREF color) const;
    /// `format` is DT_LEFT, DT_CENTER or DT_RIGHT; one line, in the middle of the height.
    void Text(const RECT& rect, const std::string& text, COLORREF color, UINT format = DT_LEFT,
              Type type = Type::kDense, bool bold = false) const;
    int TextWidth(const std::string& text, Type type = Type::kDense, bool bold = false) const;
    void Line(int x1, int y1, int x2, int y2, COLORREF color, int style = PS_SOLID) const;

private:
    HDC dc_;
};

/// A mixture of two colours: `share` of 255 of the first.
COLORREF Mixed(COLORREF first, COLORREF second, int share);

/// A pane that paints itself whole into memory, so that nothing flickers.
class View : public CWnd {
public:
    /// A visible child without a size.
    BOOL CreateView(CWnd* parent, UINT id);
    void SetPalette(const skin::Palette& palette);
    const skin::Palette& palette() const { return *palette_; }

protected:
    virtual void Paint(const Painter& painter, CSize size) = 0;
    CSize ClientSize() const;

    void OnPaint();
    BOOL OnEraseBkgnd(CDC*) { return TRUE; }
    void OnSize(UINT kind, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    const skin::Palette* palette_ = &skin::kDark;
    MemorySurface surface_;
};

}  // namespace views
