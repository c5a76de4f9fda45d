#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// The measures of a folder's icon that its pictures depend on: for the views that show them, and
/// for who makes them in advance (see beginFirstPictures).
class FolderIconMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// Side and corners of an icon in the sidebar, in window units.
    Q_PROPERTY(qreal sidebarSize MEMBER sidebarSize CONSTANT)
    Q_PROPERTY(qreal sidebarRadius MEMBER sidebarRadius CONSTANT)
    /// What a grid of items leaves free around it and between its cells, as shares of the icon.
    Q_PROPERTY(qreal gridMarginShare MEMBER gridMarginShare CONSTANT)
    Q_PROPERTY(qreal gridSpacingShare MEMBER gridSpacingShare CONSTANT)

public:
    using QObject::QObject;

    static constexpr qreal sidebarSize = 36;
    static constexpr qreal sidebarRadius = 8;
    static constexpr qreal gridMarginShare = 0.12;
    static constexpr qreal gridSpacingShare = 0.03;
};
