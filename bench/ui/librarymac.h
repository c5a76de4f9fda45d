#pragma once

#include <QTemporaryDir>

/// A stand-in Mac with Nestlet, applications that have icons, and a library of folders of 20 of
/// them. Every other folder has a picture of its own, the rest show their applications' icons.
class LibraryMac {
public:
    explicit LibraryMac(int folders, int itemsPerFolder = 20);

    /// What makes a program use it, as "NAME=value".
    [[nodiscard]] QList<QByteArray> environment() const;
    /// Makes this process use it.
    void use() const;

private:
    [[nodiscard]] QString inside(const QString &path) const;
    void addApplication(const QString &name, const QString &identifier,
                        const QByteArray &icon) const;
    void addLibrary(int folders, int itemsPerFolder) const;

    QTemporaryDir m_root;
};
