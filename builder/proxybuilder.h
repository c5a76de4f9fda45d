#pragma once

#include "model/dockfolder.h"

class CodeSign;
class FileSystem;

/// Makes a folder's Dock app out of the template app. A failure leaves the half-made bundle as it
/// is.
class ProxyBuilder {
public:
    ProxyBuilder(const FileSystem &files, const CodeSign &codeSign);

    /// Copies, rewrites, strips and signs; nothing may be at `proxy`. Throws CompanionError or
    /// PlatformError.
    void buildProxy(const FileURL &templateApp, const FileURL &proxy,
                    const DockFolder &folder) const;
    /// Removes the template's signature, store receipt and provisioning profile from a copy.
    void stripSignatureArtifacts(const FileURL &proxy) const;

private:
    const FileSystem &m_files;
    const CodeSign &m_codeSign;
};
