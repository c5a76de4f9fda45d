#pragma once

#include <QString>

class StandInMac;

/// Fills a folder as a stand-in Mac. Throws Error.
class StandInMaker {
public:
    /// `parts` is where the programs that go into it were built. Preferences name the applications
    /// by the paths they will have below `finalRoot`.
    StandInMaker(const QString &root, const QString &finalRoot, const QString &parts);

    /// Everything.
    void make() const;
    /// Only the programs that this project builds: the tools, the Dock and Nestlet.
    void writePrograms() const;

private:
    void writeTools() const;
    void writeDock() const;
    void writeNestlet() const;
    void writeSampleApps() const;
    void writeHome() const;
    void writeDockPreferences() const;

    [[nodiscard]] QString path(const QString &below) const { return m_root + u'/' + below; }
    [[nodiscard]] QString part(const QString &name) const { return m_parts + u'/' + name; }

    QString m_root;
    QString m_finalRoot;
    QString m_parts;
};
