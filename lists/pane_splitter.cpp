#include "lists/pane_splitter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kDividerWidth = 4;

}  // namespace

int CPaneSplitter::Room() const { return std::max(m_rect.Width() - kDividerWidth, 0); }

int CPaneSplitter::LeftWidth() const {
    const int width = static_cast<int>(std::lround(Room() * m_dRatio));
    // A window too narrow for both is shared as it is.
    if (Room() < 2 * m_nLeast) return width;
    return std::clamp(width, m_nLeast, Room() - m_nLeast);
}

CRect CPaneSplitter::Pane(int pane) const {
    const CRect divider = Divider();
    CRect place = m_rect;
    if (pane == 0) {
        place.right = divider.left;
    } else {
        place.left = std::min(divider.right, m_rect.right);
    }
    return place;
}

CRect CPaneSplitter::Divider() const {
    const int left = m_rect.left + LeftWidth();
    return {left, int{m_rect.top}, left + kDividerWidth, int{m_rect.bottom}};
}

void CPaneSplitter::OnPress(CPoint point) {
    if (!IsOver(point)) return;
    m_bDragging = true;
    m_nGrip = point.x - Divider().left;
    m_window.SetCapture();
}

bool CPaneSplitter::OnMove(CPoint point) {
    if (!m_bDragging || Room() < 2 * m_nLeast) return false;
    const int former = LeftWidth();
    const int wanted = point.x - m_nGrip - m_rect.left;
    m_dRatio = static_cast<double>(std::clamp(wanted, m_nLeast, Room() - m_nLeast)) / Room();
    return LeftWidth() != former;
}

void CPaneSplitter::OnRelease() {
    m_bDragging = false;
    if (::GetCapture() == m_window.m_hWnd) ::ReleaseCapture();
}
