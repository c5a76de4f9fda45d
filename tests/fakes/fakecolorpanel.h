#pragma once

#include "platform/colorpanel.h"

#include <optional>

/// A colour panel that only notes what it is told. A test chooses colours with `choose`.
struct FakeColorPanel final : ColorPanel {
    std::optional<QColor> shown{}; ///< nothing: closed
    std::function<void(const QColor &)> changed{}; ///< empty: nobody listens

    void choose(const QColor &color) const
    {
        if (changed)
            changed(color);
    }

    struct FakeObservation final : Observation {
        explicit FakeObservation(FakeColorPanel &observed)
            : panel(observed)
        {
        }
        ~FakeObservation() override { panel.changed = {}; }
        Q_DISABLE_COPY_MOVE(FakeObservation)

        FakeColorPanel &panel;
    };

    void show(const QColor &color) override
    {
        shown = color;
        choose(color); // the real one tells of this too
    }
    void close() override { shown.reset(); }
    std::unique_ptr<Observation> observe(std::function<void(const QColor &)> observer) override
    {
        changed = std::move(observer);
        return std::make_unique<FakeObservation>(*this);
    }
};
