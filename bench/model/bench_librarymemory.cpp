// What decoding a library takes in memory beyond the bytes of the file, as a multiple of them.

#include "bench/model/allocationpeak.h"
#include "bench/model/libraries.h"
#include "bench/ratios.h"
#include "model/libraryjson.h"
#include "tests/model/qtlibraryjson.h"

namespace {

using Decode = std::optional<DockFolderLibrary> (*)(const QByteArray &);

double growthPerByte(const QByteArray &json, Decode decode)
{
    AllocationPeak::start();
    benchmark::DoNotOptimize(decode(json));
    return double(AllocationPeak::growth()) / double(json.size());
}

} // namespace

int main(int argc, char **argv)
{
    struct Sample {
        std::string name;
        QByteArray json;
    };
    const QByteArray medium = encodeLibrary(mediumLibrary());
    const QByteArray large = encodeLibrary(largeLibrary());
    const std::vector<Sample> samples{{"100 x 20, plain", medium},
                                      {"100 x 20, escaped", withEscapedSlashes(medium)},
                                      {"1,000 x 50, plain", large},
                                      {"1,000 x 50, escaped", withEscapedSlashes(large)}};
    Ratios ratios;
    for (const Sample &sample : samples) {
        ratios.addFigure("Memory to decode " + sample.name, 1.3,
                         [&] { return growthPerByte(sample.json, decodeLibrary); });
        ratios.addFigure("    the same by QJsonDocument", 0,
                         [&] { return growthPerByte(sample.json, decodeLibraryByQt); });
    }
    return ratios.run(argc, argv);
}
