#include "bench/ui/windowwatch.h"

#include "bench/monotonic.h"
#include "bench/require.h"

#include <poll.h>

#include <cstdlib>
#include <set>
#include <span>

namespace {

constexpr double stillness = 0.6;
constexpr double patience = 30;
// A window that waits to be painted has one or two.
constexpr size_t fewColors = 12;

struct Free {
    void operator()(void *pointer) const { std::free(pointer); }
};

template <typename Reply> std::unique_ptr<Reply, Free> owned(Reply *reply)
{
    return std::unique_ptr<Reply, Free>(reply);
}

} // namespace

WindowWatch::WindowWatch(const QByteArray &display)
    : m_connection(xcb_connect(display.constData(), nullptr))
{
    xcb_connection_t *const connection = m_connection.get();
    require(xcb_connection_has_error(connection) == 0, "there is no display");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const auto *const damage = xcb_get_extension_data(connection, &xcb_damage_id);
    require(damage && damage->present, "the display cannot tell what is painted");
    m_firstDamageEvent = damage->first_event;
    owned(xcb_damage_query_version_reply(connection, xcb_damage_query_version(connection, 1, 1),
                                         nullptr));
    const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, m_root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection);
}

WindowWatch::Times WindowWatch::watch(const std::function<void()> &painted)
{
    m_window = {};
    m_lastPaint = 0;
    Times times;
    const double end = monotonicSeconds() + patience;
    while (times.first == 0 || monotonicSeconds() < m_lastPaint + stillness) {
        require(monotonicSeconds() < end, "no window opens, or it never stands still");
        const double paintedBefore = m_lastPaint;
        if (waitForEvent(times.first == 0 ? end : m_lastPaint + stillness))
            takeEvents();
        if (m_lastPaint == paintedBefore)
            continue;
        painted();
        times.last = m_lastPaint;
        if (times.first == 0 && showsSomething())
            times.first = times.last;
    }
    return times;
}

bool WindowWatch::waitForEvent(double until)
{
    pollfd descriptor{
        .fd = xcb_get_file_descriptor(m_connection.get()), .events = POLLIN, .revents = 0};
    const double left = std::max(0.0, until - monotonicSeconds());
    return poll(&descriptor, 1, static_cast<int>(left * 1000) + 1) > 0;
}

void WindowWatch::takeEvents()
{
    while (const auto event = owned(xcb_poll_for_event(m_connection.get())))
        take(*event);
    xcb_flush(m_connection.get());
}

// Every window is watched from its creation on: one frame may be all that a window paints.
void WindowWatch::take(const xcb_generic_event_t &event)
{
    const int type = event.response_type & 0x7F;
    if (type == XCB_CREATE_NOTIFY) {
        const auto &created = reinterpret_cast<const xcb_create_notify_event_t &>(event);
        xcb_damage_create(m_connection.get(), xcb_generate_id(m_connection.get()), created.window,
                          XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    } else if (type == XCB_MAP_NOTIFY) {
        const auto &mapped = reinterpret_cast<const xcb_map_notify_event_t &>(event);
        if (m_window == 0 && isLarge(mapped))
            m_window = mapped.window;
    } else if (type == m_firstDamageEvent + XCB_DAMAGE_NOTIFY) {
        const auto &damage = reinterpret_cast<const xcb_damage_notify_event_t &>(event);
        if (damage.drawable == m_window)
            m_lastPaint = monotonicSeconds();
    }
}

bool WindowWatch::isLarge(const xcb_map_notify_event_t &event) const
{
    const auto geometry = owned(xcb_get_geometry_reply(
        m_connection.get(), xcb_get_geometry(m_connection.get(), event.window), nullptr));
    return geometry && geometry->width > 100 && geometry->height > 80;
}

bool WindowWatch::showsSomething() const
{
    const auto geometry = owned(xcb_get_geometry_reply(
        m_connection.get(), xcb_get_geometry(m_connection.get(), m_window), nullptr));
    if (!geometry)
        return false;
    const auto image = owned(
        xcb_get_image_reply(m_connection.get(),
                            xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_window,
                                          0, 0, geometry->width, geometry->height, ~0U),
                            nullptr));
    if (!image)
        return false;
    const std::span pixels(reinterpret_cast<const uint32_t *>(xcb_get_image_data(image.get())),
                           static_cast<size_t>(xcb_get_image_data_length(image.get())) / 4);
    std::set<uint32_t> colors;
    for (const uint32_t pixel : pixels) {
        colors.insert(pixel);
        if (colors.size() >= fewColors)
            return true;
    }
    return false;
}
