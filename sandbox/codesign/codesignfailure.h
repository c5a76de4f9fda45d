#pragma once

#include "platform/error.h"

#include <QStringList>

/// What the tool says when it refuses: the path it was given and the reason, then further lines.
class CodesignFailure final : public Error {
public:
    CodesignFailure(const QString &path, const QString &reason, const QStringList &details = {})
        : m_lines(QStringList{path + u": " + reason} + details)
    {
    }

    [[nodiscard]] QString description() const override { return m_lines.join(u'\n'); }
    [[nodiscard]] QStringList details() const { return m_lines.sliced(1); }

private:
    QStringList m_lines;
};
