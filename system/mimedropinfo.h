#pragma once

#include "system/droppedurls.h"

#include <QMimeData>
#include <QStringList>

/// A copy of what MimeDropInfo looks at of a drag, byte for byte. A window system may hand out the
/// data of another program's drag only while it reports one of its movements.
class KeptDragData final : public QMimeData {
public:
    explicit KeptDragData(const QMimeData &data);

    [[nodiscard]] QStringList formats() const override { return m_formats; }
    [[nodiscard]] bool hasFormat(const QString &format) const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString &format, QMetaType type) const override;

private:
    QStringList m_formats;
    QByteArray m_uriList; ///< QMimeData's own way to keep it would write its URLs anew
};

/// What a drag of this program's toolkit carries: each line of its URI list is one item. The data
/// are kept, so that they outlive the drag.
class MimeDropInfo final : public DropInfo {
public:
    explicit MimeDropInfo(const QMimeData *data);

    [[nodiscard]] bool hasItems(DropContent content) const override;
    /// In the order of the list. Their data come through the event loop. A directory is given as a
    /// directory URL, however it was written; any other text is left as it came.
    [[nodiscard]] QList<std::shared_ptr<DropItemProvider>> fileURLProviders() const override;

private:
    QList<QByteArray> m_fileURLs;
    bool m_hasPlainText = false;
};
