#pragma once

#include "platform/toolkit/base.h"

/// Owns a drawing object and deletes it, at the latest with itself. It must not be selected into a
/// device context then; ScopedSelect sees to that.
class CGdiObject : public CObject {
public:
    HGDIOBJ m_hObject = nullptr;

    CGdiObject() = default;
    ~CGdiObject() override { DeleteObject(); }

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    BOOL Attach(HGDIOBJ object) {
        DeleteObject();
        m_hObject = object;
        return object != nullptr;
    }
    HGDIOBJ Detach() {
        HGDIOBJ object = m_hObject;
        m_hObject = nullptr;
        return object;
    }
    BOOL DeleteObject() { return m_hObject != nullptr && ::DeleteObject(Detach()); }
    int GetObject(int size, void* data) const { return ::GetObjectA(m_hObject, size, data); }
};

class CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    BOOL CreateSolidBrush(COLORREF color) { return Attach(::CreateSolidBrush(color)); }
};

class CPen : public CGdiObject {
public:
    CPen() = default;
    CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    BOOL CreatePen(int style, int width, COLORREF color) {
        return Attach(::CreatePen(style, width, color));
    }
};

class CFont : public CGdiObject {
public:
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    BOOL CreateFontIndirect(const LOGFONTA* font) { return Attach(::CreateFontIndirectA(font)); }
    BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                    BYTE underline, BYTE strike_out, BYTE char_set, BYTE out_precision,
                    BYTE clip_precision, BYTE quality, BYTE pitch_and_family, LPCSTR face) {
        return Attach(::CreateFontA(height, width, escapement, orientation, weight, italic,
                                    underline, strike_out, char_set, out_precision, clip_precision,
                                    quality, pitch_and_family, face));
    }
};

class CBitmap : public CGdiObject {
public:
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    /// As deep as the context, which must not be a fresh memory context: that one has one bit.
    BOOL CreateCompatibleBitmap(HDC dc, int width, int height) {
        return Attach(::CreateCompatibleBitmap(dc, width, height));
    }
    int GetBitmap(BITMAP* bitmap) const { return GetObject(sizeof(*bitmap), bitmap); }
};
