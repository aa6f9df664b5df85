// libFuzzer target for the property-list decoder. Any input must either fail
// with a coding error or decode into records whose XML text survives another
// round through either format unchanged. (Texts are compared rather than
// records because a NaN read from a file never equals itself.)
#include <tessaro/model/ConfigRecords.h>
#include <tessaro/model/PlistCodec.h>

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

template <tessaro::Record T>
void roundTrip(const std::string& bytes)
{
    std::vector<T> records;
    try {
        records = tessaro::decodeRecordList<T>(bytes);
    } catch (const tessaro::CodingError&) {
        return;
    }
    const std::string xml = tessaro::encodeRecordList(records);
    for (auto format : {tessaro::PlistFormat::xml, tessaro::PlistFormat::binary}) {
        const std::string encoded = tessaro::encodeRecordList(records, format);
        if (tessaro::encodeRecordList(tessaro::decodeRecordList<T>(encoded)) != xml)
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    // The first byte picks the record type; the rest is the document.
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    switch (data[0] % 4) {
    case 0: roundTrip<tessaro::Level>(bytes); break;
    case 1: roundTrip<tessaro::Obstacle>(bytes); break;
    case 2: roundTrip<tessaro::Character>(bytes); break;
    default: roundTrip<tessaro::GenericObject>(bytes); break;
    }
    return 0;
}
