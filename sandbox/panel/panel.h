#pragma once

#include "sandbox/common/appbundle.h"
#include "sandbox/common/library.h"
#include "sandbox/common/standinmac.h"
#include "sandbox/scene/rowmodel.h"

#include <QColor>
#include <QObject>
#include <QQmlEngine>

/// What the panel of one Nestlet process shows: its Dock folder, as the library has it now, or for
/// Nestlet itself a folder of its own.
class Panel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(int columns READ columns NOTIFY changed)
    Q_PROPERTY(QString hint READ hint NOTIFY changed)
    Q_PROPERTY(RowModel *items READ items CONSTANT)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    Q_PROPERTY(int anchor READ anchor NOTIFY anchorChanged)

public:
    Panel(const StandInMac &mac, const AppBundle &bundle, QObject *parent = nullptr);

    [[nodiscard]] QString name() const { return m_folder.name; }
    [[nodiscard]] QColor accent() const;
    [[nodiscard]] int columns() const;
    /// What to say where items would be, when there are none.
    [[nodiscard]] QString hint() const;
    [[nodiscard]] RowModel *items() { return &m_items; }
    [[nodiscard]] bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    /// The x coordinate that the panel was asked for at; 0 or less: none.
    [[nodiscard]] int anchor() const { return m_anchor; }

    void showAt(int anchor);
    Q_INVOKABLE void open(const QString &path);

Q_SIGNALS:
    void changed();
    void visibleChanged();
    void anchorChanged();

private:
    void refresh();
    [[nodiscard]] DockFolder currentFolder() const;
    [[nodiscard]] bool isOwnFolder() const { return !m_bundle.dockFolderID(); }

    StandInMac m_mac;
    AppBundle m_bundle;
    Library m_library;
    DockFolder m_folder;
    bool m_isMissing{};
    RowModel m_items;
    bool m_visible{};
    int m_anchor{};
};
