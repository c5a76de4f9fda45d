#include "builder/templateapp.h"

#include "builder/codesign.h"
#include "builder/companionerror.h"
#include "builder/infoplist.h"
#include "model/nestlet.h"
#include "platform/directories.h"
#include "platform/filesystem.h"
#include "platform/mainbundle.h"
#include "platform/workspace.h"

#include <QCoreApplication>
#include <QSet>

namespace {

const QString nestletFileName = QStringLiteral("Nestlet.app");

FileURL asDirectory(const FileURL &url)
{
    return url.hasDirectoryPath() ? url : FileURL::directory(url.path());
}

QList<FileURL> withoutRepeatedPaths(const QList<FileURL> &urls)
{
    QList<FileURL> kept;
    QSet<QString> seen;
    for (const FileURL &url : urls) {
        const QString path = url.standardizedPath();
        if (!seen.contains(path)) {
            seen.insert(path);
            kept.append(url);
        }
    }
    return kept;
}

CompanionError invalid(const QString &reason)
{
    return {CompanionError::Kind::invalidNestletApp, reason};
}

} // namespace

TemplateApp::TemplateApp(const Collaborators &collaborators)
    : m_(collaborators)
{
}

FileURL TemplateApp::siblingURL() const
{
    return m_.mainBundle.url().deletingLastPathComponent().appendingDirectory(nestletFileName);
}

QList<FileURL> TemplateApp::fixedCandidates() const
{
    return {siblingURL(), m_.directories.system(QStringLiteral("/Applications/Nestlet.app/")),
            m_.directories.home()
                .appendingDirectory(QStringLiteral("Applications"))
                .appendingDirectory(nestletFileName)};
}

QList<FileURL> TemplateApp::candidateNestletURLs() const
{
    QList<FileURL> urls = fixedCandidates();
    if (const auto known = m_.workspace.applicationWithBundleIdentifier(nestletBundleIdentifier))
        urls.append(asDirectory(*known));
    return withoutRepeatedPaths(urls);
}

FileURL TemplateApp::locateNestletApp() const
{
    const QString siblingPath = siblingURL().standardizedPath();
    QStringList failures;
    for (const FileURL &candidate : candidateNestletURLs()) {
        if (!m_.files.exists(candidate))
            continue;
        try {
            verifyNestletApp(candidate, candidate.standardizedPath() != siblingPath);
            return candidate;
        } catch (const Error &error) { // the next candidate may be better
            failures.append(candidate.path() + QStringLiteral(": ") + error.description());
        }
    }
    if (failures.isEmpty())
        throw CompanionError(CompanionError::Kind::missingNestletApp, missingLocationsText());
    throw invalid(failures.join(u'\n'));
}

void TemplateApp::verifyNestletApp(const FileURL &bundle, bool checkSigner) const
{
    if (bundleIdentifier(bundle, m_.files) != nestletBundleIdentifier) {
        throw invalid(QCoreApplication::translate(
            "TemplateApp", "The Nestlet app has an unexpected bundle identifier."));
    }
    m_.codeSign.codesignVerify(bundle);
    if (checkSigner)
        verifySigner(bundle);
}

void TemplateApp::verifySigner(const FileURL &bundle) const
{
    const QString description = m_.codeSign.codesignDescribe(bundle);
    if (!description.contains(QStringLiteral("TeamIdentifier=") + expectedTeamIdentifier)) {
        throw invalid(QCoreApplication::translate(
            "TemplateApp", "The Nestlet app is not signed by the expected developer team."));
    }
    if (!description.contains(QStringLiteral("Identifier=") + nestletBundleIdentifier)) {
        throw invalid(QCoreApplication::translate(
            "TemplateApp", "The Nestlet app has an unexpected signing identifier."));
    }
}

QString TemplateApp::missingLocationsText() const
{
    QStringList paths;
    for (const FileURL &candidate : candidateNestletURLs())
        paths.append(candidate.path());
    return paths.join(u", ");
}

std::optional<FileURL> TemplateApp::installedNestletURL() const
{
    for (const FileURL &url : fixedCandidates()) {
        if (m_.files.exists(url))
            return url;
    }
    // Asking the workspace is dear, so it comes last.
    const auto known = m_.workspace.applicationWithBundleIdentifier(nestletBundleIdentifier);
    return known && m_.files.exists(*known) ? known : std::nullopt;
}
