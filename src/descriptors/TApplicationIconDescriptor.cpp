#include "TApplicationIconDescriptor.h"

#include "../utils/ParserUtils.h"
#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {
const U32 kFlagsLength = 2;
} // namespace

TApplicationIconDescriptor::TApplicationIconDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iIconFlags(0)
{
}

TApplicationIconDescriptor::TApplicationIconDescriptor(std::string iconLocator, U16 iconFlags)
    : TISDBTDescriptor(DESCRIPTOR_TAG, nullptr, 0), m_sIconLocator(iconLocator), m_iIconFlags(iconFlags)
{
}

TApplicationIconDescriptor::TApplicationIconDescriptor(TApplicationIconDescriptor* source)
    : TApplicationIconDescriptor(source ? source->m_sIconLocator : std::string(), source ? source->m_iIconFlags : 0)
{
}

TApplicationIconDescriptor::~TApplicationIconDescriptor() = default;

TApplicationIconDescriptor* TApplicationIconDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode)
{
    return parseDescriptor<TApplicationIconDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TApplicationIconDescriptor* TApplicationIconDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                              U16* errorCode, const U8* limit)
{
    return parseDescriptor<TApplicationIconDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TApplicationIconDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode)
{
    U8* position = m_pData + COMMON_HEADER_LENGTH;
    // The locator's length byte and characters past the end of the buffer
    // stop the parse as its flags do (no length line).
    if (!stringFits(position, limit, dataLength - COMMON_HEADER_LENGTH)) {
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
        return FALSE;
    }
    const S32 read = ParserUtils::parseStr(position, m_sIconLocator, 0, dataLength - COMMON_HEADER_LENGTH);
    if (read < 0) {
        VURO_LOGW("%s: TApplicationIconDescriptor:: parse: ERROR: parsing Icon Locator. Aborting!", VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        return FALSE;
    }
    position += read;
    // icon_flags follow the locator without a check against the descriptor
    // length: a locator that fills the descriptor takes its flags from the
    // next bytes of the section. Past the end of the buffer the parse stops.
    if (!descriptorBytesInBuffer(position, limit, kFlagsLength, errorCode))
        return FALSE;
    m_iIconFlags = readU16(position);
    parsedLength = static_cast<U8>(dataLength);
    return TRUE;
}

} // namespace Vuro
