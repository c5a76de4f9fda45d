#pragma once

#include "system/droppedurls.h"

class QMimeData;

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
