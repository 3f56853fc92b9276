#include "TGingaApplicationDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"
#include "ApplicationDescriptorSupport.h"

namespace Vuro {

TGingaApplicationDescriptor::TGingaApplicationDescriptor(U8 tag, U8* data, U32 length)
    : TISDBTDescriptor(tag, data, length)
{
}

TGingaApplicationDescriptor::TGingaApplicationDescriptor(U8 tag, const TGingaApplicationDescriptor* source)
    : TISDBTDescriptor(tag, nullptr, 0)
{
    if (source)
        m_pItems = source->m_pItems;
}

TGingaApplicationDescriptor::~TGingaApplicationDescriptor() = default;

std::string TGingaApplicationDescriptor::get(U32 index) const
{
    auto it = walkList(m_pItems, index);
    return it == m_pItems.end() ? std::string() : *it;
}

BOOL TGingaApplicationDescriptor::remove(U32 index)
{
    auto it = walkList(m_pItems, index);
    if (it == m_pItems.end())
        return FALSE;
    m_pItems.erase(it);
    return TRUE;
}

BOOL TGingaApplicationDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    return parseParameters(m_pData + COMMON_HEADER_LENGTH, dataLength - COMMON_HEADER_LENGTH, limit, &parsedLength,
                           errorCode);
}

BOOL TGingaApplicationDescriptor::parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode)
{
    return parseParameters(sectionData, dataLength, outerLimit(sectionData, dataLength), parsedLength, errorCode);
}

BOOL TGingaApplicationDescriptor::parseParameters(U8* sectionData, U32 dataLength, const U8* limit,
                                                  U32* parsedLength, U16* errorCode)
{
    U8* position = sectionData;
    U32 remaining = dataLength;
    while (remaining != 0) {
        std::string parameter;
        if (!stringFits(position, limit, remaining)) {
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
            return FALSE;
        }
        const S32 read = ParserUtils::parseStr(position, parameter, 0, remaining);
        if (read < 0) {
            VURO_LOGW("%s: TGingaApplicationDescriptor:: parse: ERROR: parsing Parameter. Aborting!",
                      VURO_LOG_ORIGIN);
            ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
            return FALSE;
        }
        add(parameter);
        position += read;
        remaining -= static_cast<U32>(read);
    }
    if (parsedLength)
        *parsedLength = dataLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return TRUE;
}

} // namespace Vuro
