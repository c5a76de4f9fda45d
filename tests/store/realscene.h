#pragma once

#include "platform/runningapplications.h"
#include "tests/sandbox/standin.h"
#include "tests/store/realcompanion.h"

#include <chrono>

/// Long enough for the slowest instrumented program on a busy machine: what fails there would hang.
inline constexpr int patience = 90'000;

/// A companion of real parts in a stand-in Mac whose template, signing tool and Dock apps are real
/// programs. One stand-in serves all tests of a program and is put back in order before each.
class RealScene {
public:
    RealScene();
    ~RealScene();

    /// Ends what runs in the stand-in and gives it the state it was made with.
    void restore();
    /// Begins with these folders in the library and with a companion that has just been started.
    void startWith(const QList<DockFolder> &folders);
    /// Ends the companion and starts another one.
    void restart();
    void endCompanion() { m_companion.reset(); }

    [[nodiscard]] const StandIn &standIn() const { return m_standIn; }
    [[nodiscard]] Platform &platform() { return m_companion->platform; }
    [[nodiscard]] CompanionStore &store() { return m_companion->engine.store; }
    [[nodiscard]] DockFolder folder(qsizetype index = 0) { return store().folders().at(index); }

    [[nodiscard]] QString nestlet() const;
    [[nodiscard]] QString codesign() const;
    [[nodiscard]] QString proxyDirectory() const;
    [[nodiscard]] QString proxy(const QString &fileName) const;
    /// What is in the proxy directory.
    [[nodiscard]] QStringList proxies() const;
    /// What the stand-in's signing tool has against a bundle; nothing when it passes.
    [[nodiscard]] QString sealComplaint(const QString &bundle) const;
    /// Signs the template anew, as its maker, after a change to it.
    [[nodiscard]] bool signTemplate() const;

    /// Presses "Show in Dock" and waits for the end of it. False when that does not come.
    [[nodiscard]] bool install(const DockFolder &folder);
    /// Waits for the one ready process of the folder's Dock app that is not `before`; else 0.
    [[nodiscard]] qint64 waitForProcess(const DockFolder &folder, qint64 before = 0);
    [[nodiscard]] QList<RunningApplication> running(const DockFolder &folder);
    [[nodiscard]] bool waitUntilGone(const DockFolder &folder);
    [[nodiscard]] bool hasLogged(qint64 process, const QString &line) const;

private:
    void endPrograms() const;
    void keepPristine(const QString &below) const;
    void putBack(const QString &below) const;

    StandIn m_standIn;
    QTemporaryDir m_pristine;
    std::unique_ptr<RealCompanion> m_companion;
};
