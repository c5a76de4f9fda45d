#pragma once

#include <QByteArray>

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <functional>
#include <memory>

/// When the next window that opens on a display shows what: seen from outside, by what the display
/// is told to paint, and so the same for every program.
class WindowWatch {
public:
    struct Times {
        double first{}; ///< the first frame with something to see
        double last{}; ///< the last change of the window, before it stood still for a while
    };

    explicit WindowWatch(const QByteArray &display);

    /// Waits for the window and until it stands still. `painted` is called whenever something was
    /// painted. Times are those of the monotonic clock, in seconds.
    [[nodiscard]] Times watch(const std::function<void()> &painted);

private:
    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    bool waitForEvent(double until);
    void takeEvents();
    void take(const xcb_generic_event_t &event);
    [[nodiscard]] bool isLarge(const xcb_map_notify_event_t &event) const;
    [[nodiscard]] bool showsSomething() const;

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root{};
    uint8_t m_firstDamageEvent{};
    xcb_window_t m_window{};
    double m_lastPaint{};
};
