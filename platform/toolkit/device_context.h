#pragma once

#include "platform/toolkit/gdi_objects.h"
#include "platform/toolkit/geometry.h"

class CWnd;

/// A device context. One that was created is deleted with the object; one that only visits (in
/// handlers) is detached first by who lent it.
class TOOLKIT_API CDC : public CObject {
public:
    HDC m_hDC = nullptr;

    CDC() = default;
    ~CDC() override;

    operator HDC() const { return m_hDC; }
    HDC GetSafeHdc() const { return m_hDC; }
    BOOL Attach(HDC dc);
    HDC Detach();
    BOOL CreateCompatibleDC(const CDC* like);
    BOOL DeleteDC();

    int SaveDC() const { return ::SaveDC(m_hDC); }
    BOOL RestoreDC(int saved) const { return ::RestoreDC(m_hDC, saved); }

    /// The object that was selected before. ScopedSelect puts it back by itself.
    HGDIOBJ SelectObject(HGDIOBJ object) const { return ::SelectObject(m_hDC, object); }
    HGDIOBJ SelectObject(const CGdiObject* object) const { return SelectObject(object->m_hObject); }

    COLORREF SetTextColor(COLORREF color) const { return ::SetTextColor(m_hDC, color); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF SetBkColor(COLORREF color) const { return ::SetBkColor(m_hDC, color); }
    int SetBkMode(int mode) const { return ::SetBkMode(m_hDC, mode); }

    BOOL TextOut(int x, int y, LPCSTR text, int count) const {
        return ::TextOutA(m_hDC, x, y, text, count);
    }
    int DrawText(LPCSTR text, int count, LPRECT rect, UINT format) const {
        return ::DrawTextA(m_hDC, text, count, rect, format);
    }
    CSize GetTextExtent(LPCSTR text, int count) const;
    BOOL GetTextMetrics(LPTEXTMETRICA metrics) const { return ::GetTextMetricsA(m_hDC, metrics); }

    void FillRect(LPCRECT rect, HBRUSH brush) const { ::FillRect(m_hDC, rect, brush); }
    void FrameRect(LPCRECT rect, HBRUSH brush) const { ::FrameRect(m_hDC, rect, brush); }
    void FillSolidRect(const RECT& rect, COLORREF color) const;
    void DrawFocusRect(LPCRECT rect) const { ::DrawFocusRect(m_hDC, rect); }
    void MoveTo(int x, int y) const { ::MoveToEx(m_hDC, x, y, nullptr); }
    BOOL LineTo(int x, int y) const { return ::LineTo(m_hDC, x, y); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    BOOL GradientFill(TRIVERTEX* vertices, ULONG vertex_count, void* mesh, ULONG mesh_count,
                      DWORD mode) const {
        return ::GradientFill(m_hDC, vertices, vertex_count, mesh, mesh_count, mode);
    }

    BOOL BitBlt(int x, int y, int width, int height, const CDC* source, int source_x, int source_y,
                DWORD operation) const {
        return ::BitBlt(m_hDC, x, y, width, height, source->m_hDC, source_x, source_y, operation);
    }
    BOOL StretchBlt(int x, int y, int width, int height, const CDC* source, int source_x,
                    int source_y, int source_width, int source_height, DWORD operation) const {
        return ::StretchBlt(m_hDC, x, y, width, height, source->m_hDC, source_x, source_y,
                            source_width, source_height, operation);
    }
    BOOL TransparentBlt(int x, int y, int width, int height, const CDC* source, int source_x,
                        int source_y, int source_width, int source_height, UINT color) const {
        return ::TransparentBlt(m_hDC, x, y, width, height, source->m_hDC, source_x, source_y,
                                source_width, source_height, color);
    }
    int IntersectClipRect(LPCRECT rect) const;
};

/// Answers WM_PAINT: the invalid part of the window while it lives.
class TOOLKIT_API CPaintDC : public CDC {
public:
    PAINTSTRUCT m_ps{};

    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

private:
    HWND window_;
};

/// The client area of a window; of the whole screen without one.
class TOOLKIT_API CClientDC : public CDC {
public:
    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

private:
    HWND window_;
};

/// A whole window, its frame included.
class TOOLKIT_API CWindowDC : public CDC {
public:
    explicit CWindowDC(CWnd* window);
    ~CWindowDC() override;

private:
    HWND window_;
};

namespace toolkit {

/// Selects an object for the life of a scope and puts the former one back.
class ScopedSelect {
public:
    ScopedSelect(HDC dc, HGDIOBJ object) : dc_(dc), former_(::SelectObject(dc, object)) {}
    ~ScopedSelect() { ::SelectObject(dc_, former_); }
    ScopedSelect(const ScopedSelect&) = delete;
    ScopedSelect& operator=(const ScopedSelect&) = delete;

private:
    HDC dc_;
    HGDIOBJ former_;
};

}  // namespace toolkit
