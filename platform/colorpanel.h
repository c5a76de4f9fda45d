#pragma once

#include <QColor>

#include <functional>
#include <memory>

/// The system's one colour panel, which all windows share. Main thread only.
class ColorPanel {
public:
    virtual ~ColorPanel() = default;

    /// Listens for as long as it lives.
    class Observation {
    public:
        Observation() = default;
        virtual ~Observation() = default;
        Q_DISABLE_COPY_MOVE(Observation)
    };

    /// Shows the panel in front, set to the colour, without a control for its opacity.
    virtual void show(const QColor &color) = 0;
    virtual void close() = 0;
    /// Calls `changed` on the main thread with every colour chosen from now on, in sRGB. An invalid
    /// one is a colour that has no sRGB form.
    [[nodiscard]] virtual std::unique_ptr<Observation>
    observe(std::function<void(const QColor &)> changed) = 0;
};
