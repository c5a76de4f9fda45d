#pragma once

#include "platform/fileurl.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

/// Who is told of the files that were dropped on a folder. They are read after the drop: by then
/// the area that they fell on may be another folder's or gone. The receiver outlives it.
class DropReceiver : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("An interface")

public:
    using QObject::QObject;
    /// At least one URL.
    virtual void receiveDrop(const QString &folderID, const QList<FileURL> &urls) = 0;
};
