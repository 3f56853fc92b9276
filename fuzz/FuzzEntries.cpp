#include "FuzzEntries.h"

#include <cstring>

namespace VuroFuzz {

using namespace Vuro;

namespace {

void parseStr(U8* data, U32 length)
{
    if (length == 0)
        return;
    std::string target;
    // Length from the first byte, the rest as the available data.
    ParserUtils::parseStr(data + 1, target, data[0] & 0x3F, length - 1);
}

void parseByteArray(U8* data, U32 length)
{
    if (length == 0)
        return;
    U8* target = nullptr;
    const U8 count = static_cast<U8>(data[0] <= length - 1 ? data[0] : length - 1);
    ParserUtils::parseByteArray(data + 1, target, count);
    delete[] target;
}

void utilities(U8* data, U32 length)
{
    ISDBTUtils::getSectionCRC32(data, length);
    if (length >= 2)
        ISDBTUtils::mjd2unix(static_cast<U16>((data[0] << 8) | data[1]));
    if (length >= 1)
        ISDBTUtils::bcd2U8(data[0]);
}

std::vector<Entry> foundation()
{
    return {
        // Foundation
        {"ParserUtils::parseStr", parseStr},
        {"ParserUtils::parseByteArray", parseByteArray},
        {"ISDBTUtils", utilities},
        {"TPATTable", table<TPATTable>},
        {"TServiceListDescriptor", descriptor<TServiceListDescriptor>},
        {"TServiceListDescriptor/within", descriptorWithin<TServiceListDescriptor>},
        {"TServiceListDescriptorItem", item<TServiceListDescriptorItem>},
    };
}

std::vector<Entry> build()
{
    std::vector<Entry> all = foundation();
    for (std::vector<Entry> family :
         {networkEntries(), serviceEventEntries(), streamEntries(), programMapEntries(), serviceTimeEntries(),
          downloadEntries(), dsmccEntries(), applicationEntries(), sequenceEntries(), eventEntries()})
        all.insert(all.end(), family.begin(), family.end());
    return all;
}

} // namespace

const std::vector<Entry>& entries()
{
    static const std::vector<Entry> all = build();
    return all;
}

int entryIndex(const std::string& name)
{
    const std::vector<Entry>& all = entries();
    for (std::size_t i = 0; i < all.size(); ++i)
        if (name == all[i].name)
            return static_cast<int>(i);
    return -1;
}

} // namespace VuroFuzz
