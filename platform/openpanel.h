#pragma once

#include "platform/fileurl.h"

#include <QStringList>

#include <functional>
#include <optional>

/// The system's panel for choosing a file. Main thread only.
class OpenPanel {
public:
    virtual ~OpenPanel() = default;

    struct Request {
        QString title{};
        QStringList contentTypes{}; ///< uniform type identifiers, such as "public.png"
    };
    using Completion = std::function<void(const std::optional<FileURL> &chosen)>;

    /// Shows the panel beside the windows, which stay usable, for one file and no directory.
    /// `completion` is called once, on the main thread, with nothing when the user cancelled.
    virtual void choose(const Request &request, Completion completion) = 0;
};
