#pragma once

#include "platform/fileurl.h"

#include <QList>

#include <optional>

class CodeSign;
class Directories;
class FileSystem;
class MainBundle;
class Workspace;

/// Finds the installed Nestlet app, of which Dock apps are clones, and makes sure that it is
/// genuine. Nothing is remembered: each call looks anew. Main thread.
class TemplateApp {
public:
    struct Collaborators {
        const FileSystem &files;
        const Directories &directories;
        const MainBundle &mainBundle;
        const Workspace &workspace;
        const CodeSign &codeSign;
    };
    explicit TemplateApp(const Collaborators &collaborators);

    /// Where Nestlet may be, best first, each path once.
    [[nodiscard]] QList<FileURL> candidateNestletURLs() const;
    /// The first candidate that exists and passes verification. Throws CompanionError.
    [[nodiscard]] FileURL locateNestletApp() const;
    /// Throws CompanionError, or PlatformError when the signing tool cannot be run. Without
    /// `checkSigner` any intact signature will do.
    void verifyNestletApp(const FileURL &bundle, bool checkSigner) const;
    /// All candidates' paths, for a message.
    [[nodiscard]] QString missingLocationsText() const;
    /// The first candidate at whose path something is; verifies nothing.
    [[nodiscard]] std::optional<FileURL> installedNestletURL() const;

private:
    [[nodiscard]] FileURL siblingURL() const;
    [[nodiscard]] QList<FileURL> fixedCandidates() const;
    void verifySigner(const FileURL &bundle) const;

    Collaborators m_;
};
