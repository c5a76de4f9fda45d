#pragma once

#include "ui/dropreceiver.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QWindow>

/// Data as another program offers them: byte for byte. QMimeData itself would rewrite URLs.
class RawMimeData final : public QMimeData {
public:
    RawMimeData(QString format, QByteArray bytes)
        : m_format(std::move(format))
        , m_bytes(std::move(bytes))
    {
    }

    [[nodiscard]] QStringList formats() const override { return {m_format}; }
    [[nodiscard]] bool hasFormat(const QString &format) const override
    {
        return format == m_format;
    }

protected:
    [[nodiscard]] QVariant retrieveData(const QString &format, QMetaType) const override
    {
        return format == m_format ? QVariant(m_bytes) : QVariant();
    }

private:
    QString m_format;
    QByteArray m_bytes;
};

/// Notes each drop that it is told of: the folder, then the texts of the URLs.
class NotingReceiver final : public DropReceiver {
public:
    void receiveDrop(const QString &folderID, const QList<FileURL> &urls) override
    {
        QString drop = folderID;
        for (const FileURL &url : urls)
            drop += u' ' + url.text();
        drops.append(drop);
    }

    QStringList drops;
};

/// A drag of another program over a window, as the window system reports it. Outlives the drop.
class IncomingDrag {
public:
    IncomingDrag(QWindow &window, const QByteArray &uriList,
                 const QString &format = QStringLiteral("text/uri-list"))
        : m_window(window)
        , m_data(format, uriList)
    {
    }

    /// Whether what lies there would take the drop.
    bool enter(const QPoint &at)
    {
        QDragEnterEvent event(at, actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        return send(event) && event.isAccepted();
    }
    bool move(const QPoint &to)
    {
        QDragMoveEvent event(to, actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        return send(event) && event.isAccepted();
    }
    void leave()
    {
        QDragLeaveEvent event;
        send(event);
    }
    /// What the source is told was done; IgnoreAction when the drop was refused.
    Qt::DropAction drop(const QPoint &at)
    {
        QDropEvent event(at, actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        send(event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

private:
    static constexpr Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

    bool send(QEvent &event) { return QCoreApplication::sendEvent(&m_window, &event); }

    QWindow &m_window;
    RawMimeData m_data;
};
