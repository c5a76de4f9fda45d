#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

/// How well colours stand out from each other, by the contrast ratio of WCAG 2.1: 1 to 21.
class Contrast : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// What a text needs at least.
    static constexpr double forText = 4.5;
    /// What large texts and symbols need at least.
    static constexpr double forSymbols = 3.0;

    /// Of opaque colours.
    Q_INVOKABLE [[nodiscard]] static double ratio(const QColor &first, const QColor &second);
    /// What is seen of a translucent colour on an opaque one.
    Q_INVOKABLE [[nodiscard]] static QColor over(const QColor &front, const QColor &ground);
    /// The colour, darkened or lightened until it can be read on the ground; both are opaque.
    Q_INVOKABLE [[nodiscard]] static QColor readable(const QColor &color, const QColor &ground);
};
