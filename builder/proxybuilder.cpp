#include "builder/proxybuilder.h"

#include "builder/codesign.h"
#include "builder/infoplist.h"
#include "platform/filesystem.h"

ProxyBuilder::ProxyBuilder(const FileSystem &files, const CodeSign &codeSign)
    : m_files(files)
    , m_codeSign(codeSign)
{
}

void ProxyBuilder::buildProxy(const FileURL &templateApp, const FileURL &proxy,
                              const DockFolder &folder) const
{
    // The bundle itself where the user keeps a link to it: a copied link would have the template
    // rewritten through it.
    m_files.copy(m_files.resolved(templateApp), proxy);
    rewriteInfoPlist(proxy, templateApp, folder, m_files);
    stripSignatureArtifacts(proxy);
    m_codeSign.adHocSign(proxy);
}

void ProxyBuilder::stripSignatureArtifacts(const FileURL &proxy) const
{
    const FileURL contents = proxy.appendingDirectory(QStringLiteral("Contents"));
    for (const FileURL &artifact :
         {contents.appendingDirectory(QStringLiteral("_CodeSignature")),
          contents.appendingDirectory(QStringLiteral("_MASReceipt")),
          contents.appendingFile(QStringLiteral("embedded.provisionprofile"))}) {
        if (m_files.exists(artifact))
            m_files.remove(artifact);
    }
}
