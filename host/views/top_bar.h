#pragma once

#include <functional>
#include <string>

#include "host/views/view.h"

namespace views {

enum class Connection { kSignedOut, kConnecting, kConnected, kLost };

/// What the bar above everything tells. Texts are GBK.
struct TopBarState {
    Connection connection = Connection::kSignedOut;
    std::string account;
    std::string equity = "--";
    std::string available = "--";
    std::string profit = "--";
    int profit_sign = 0;
    std::string clock;  ///< market time
    std::string phase;  ///< of the session
    std::string speed;  ///< empty at normal speed
};

/// That it is paper trading, connection and account, funds, and the market's time.
class TopBar : public View {
public:
    void Set(const TopBarState& state);
    const TopBarState& state() const { return state_; }

    /// Connection or account was clicked.
    std::function<void()> on_account;
    /// The word for settings was clicked.
    std::function<void()> on_settings;

protected:
    void Paint(const Painter& painter, CSize size) override;
    void OnLButtonDown(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    int PaintFunds(const Painter& painter, int left, int bottom) const;
    void PaintClock(const Painter& painter, CSize size, int left);

    TopBarState state_;
    RECT account_{};
    RECT settings_{};
    CPoint pointer_{-1, -1};
};

}  // namespace views
