#pragma once

#include "platform/colorpanel.h"
#include "ui/systempanels.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

/// Opens the system's colour panel and tells which colours are chosen there, for as long as it
/// lives and until `stop`.
class ColorPanelObserver : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(SystemPanels *panels MEMBER m_panels NOTIFY panelsChanged)
    Q_PROPERTY(bool isAvailable READ isAvailable NOTIFY panelsChanged)

public:
    using QObject::QObject;

    /// Whether the system has a colour panel.
    [[nodiscard]] bool isAvailable() const;

    /// Shows the panel in front with a folder's colour, or the first of the palette.
    Q_INVOKABLE void open(const QString &hex);
    /// Listens no longer and closes the panel.
    Q_INVOKABLE void stop();

Q_SIGNALS:
    void panelsChanged();
    /// "#RRGGBB".
    void changed(const QString &hex);

private:
    QPointer<SystemPanels> m_panels;
    std::unique_ptr<ColorPanel::Observation> m_token;
};
