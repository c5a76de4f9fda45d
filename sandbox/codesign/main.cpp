#include "sandbox/codesign/codesigntool.h"

#include <QFile>

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i])); // NOLINT(*-pointer-arithmetic)
    return runCodesign(arguments);
}
