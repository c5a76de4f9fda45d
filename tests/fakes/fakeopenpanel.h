#pragma once

#include "platform/openpanel.h"

#include <QList>

/// An open panel that a test answers.
struct FakeOpenPanel final : OpenPanel {
    QList<Request> requests{};
    Completion completion{};

    void choose(const Request &request, Completion answer) override
    {
        requests.append(request);
        completion = std::move(answer);
    }
};
