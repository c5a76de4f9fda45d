#pragma once

#include "platform/workspace.h"

#include <QObject>

class RunningApplications;

/// The workspace of a stand-in Mac. Its applications are started as real processes; web pages,
/// documents and files to be shown are noted in "private/var/log/open.log" and, where there is a
/// desktop, opened with its own programs.
class PortableWorkspace final : public Workspace {
public:
    PortableWorkspace(const QString &root, const RunningApplications &applications)
        : m_root(root)
        , m_applications(applications)
    {
    }

    [[nodiscard]] std::optional<FileURL>
    applicationWithBundleIdentifier(const QString &bundleIdentifier) const override;
    /// A program that is executed is launched, whatever it does then.
    void openApplication(const FileURL &bundle, Activation activation,
                         OpenCompletion completion) override;
    void openURL(const QUrl &url) override;
    void reveal(const QList<FileURL> &urls) override;
    [[nodiscard]] QImage icon(const FileURL &url, int side) const override;

private:
    void launch(const FileURL &bundle, Activation activation) const;
    void note(const QString &line) const;

    QString m_root;
    const RunningApplications &m_applications;
    QObject m_context; ///< what is still to be completed ends with it
};
