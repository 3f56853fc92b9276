#include "TTransportProtocolDescriptorIC.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"
#include "ApplicationDescriptorSupport.h"

namespace Vuro {

namespace {
const U32 kFixed = 3; // protocol_id, label

} // namespace

TTransportProtocolDescriptorIC::TTransportProtocolDescriptorIC(U8* data, U32 length)
    : TTransportProtocolDescriptor(DataCarousel, 4, data, length)
{
}

TTransportProtocolDescriptorIC::TTransportProtocolDescriptorIC(TTransportProtocolDescriptorIC* source)
    : TTransportProtocolDescriptorIC(nullptr, 0)
{
    if (!source)
        return;
    m_iTransportProtocolLabel = source->m_iTransportProtocolLabel;
    m_pURLs = source->m_pURLs;
}

TTransportProtocolDescriptorIC::~TTransportProtocolDescriptorIC() = default;

const TTransportProtocolDescriptorIC::URLEntry* TTransportProtocolDescriptorIC::entry(U32 index) const
{
    auto it = walkList(m_pURLs, index);
    return it == m_pURLs.end() ? nullptr : &*it;
}

std::string TTransportProtocolDescriptorIC::getURLBase(U32 index) const
{
    const URLEntry* found = entry(index);
    return found ? found->first : std::string();
}

U32 TTransportProtocolDescriptorIC::getURLExtensionCount(U32 index) const
{
    const URLEntry* found = entry(index);
    return found ? static_cast<U32>(found->second.size()) : 0;
}

std::string TTransportProtocolDescriptorIC::getURLExtension(U32 index, U32 extensionIndex) const
{
    const URLEntry* found = entry(index);
    if (!found)
        return std::string();
    auto it = walkList(found->second, extensionIndex);
    return it == found->second.end() ? std::string() : *it;
}

BOOL TTransportProtocolDescriptorIC::parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    const auto tooShort = [&](U32 value) {
        VURO_LOGW("%s: TTransportProtocolDescriptorIC::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  value);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return FALSE;
    };
    const auto badString = [&](const char* line) {
        VURO_LOGW(line, VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    };
    if (dataLength < kFixed)
        return tooShort(dataLength);
    m_iTransportProtocolLabel = sectionData[2];
    U8* position = sectionData + kFixed;
    U32 remaining = dataLength - kFixed;
    // Only the fixed bytes are reported: the URL entries are not added to it.
    const U32 read = kFixed;
    while (remaining != 0) {
        URLEntry url;
        const S32 baseRead = ParserUtils::parseStr(position, url.first, 0, remaining);
        if (baseRead < 0)
            return badString("%s: TTransportProtocolDescriptorIC::parse: ERROR: parsing URL Base. Aborting!");
        // URL_extension_count must follow the base inside the data.
        if (static_cast<U32>(baseRead) >= remaining)
            return tooShort(remaining - static_cast<U32>(baseRead));
        U8 extensions = position[baseRead];
        position += baseRead + 1;
        remaining -= static_cast<U32>(baseRead) + 1;
        while (extensions-- > 0) {
            std::string extension;
            const S32 extensionRead = ParserUtils::parseStr(position, extension, 0, remaining);
            if (extensionRead < 0)
                return badString("%s: TTransportProtocolDescriptorIC::parse: ERROR: parsing URL Extension. Aborting!");
            url.second.push_back(extension);
            position += extensionRead;
            remaining -= static_cast<U32>(extensionRead);
        }
        m_pURLs.push_back(url);
    }
    if (parsedLength)
        *parsedLength = read;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return TRUE;
}

} // namespace Vuro
