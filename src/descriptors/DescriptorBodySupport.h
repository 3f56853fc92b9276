// Internal to the library (not installed): helpers the simple descriptor
// bodies share: the bounded-read check and the owned byte blocks.
#ifndef VURO_DESCRIPTOR_BODY_SUPPORT_H
#define VURO_DESCRIPTOR_BODY_SUPPORT_H


#include "../TISDBTTable.h"
#include "TISDBTDescriptor.h"
#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

// TRUE when the need bytes at pos lie inside the buffer ending at limit.
// Otherwise stores ERROR_INVALID_DESCRIPTOR_LENGTH and returns FALSE: a
// descriptor whose own length runs past the section it sits in stops at the
// section's end. Classes with a length message log it themselves.
inline BOOL descriptorBytesInBuffer(const U8* pos, const U8* limit, U32 need, U16* errorCode)
{
    if (fits(pos, limit, need))
        return TRUE;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    return FALSE;
}

// A body of fieldsLength fixed bytes from byte 2 on, followed by a block that
// runs to the end of the descriptor's dataLength bytes: checks both against
// limit and copies the block. FALSE (ERROR_INVALID_DESCRIPTOR_LENGTH, nothing
// copied) when they pass it.
inline BOOL copyBlockAfterFields(const U8* data, U32 dataLength, U32 fieldsLength, const U8* limit,
                                 VURO_U8*& block, VURO_U8& size, U16* errorCode)
{
    const U8* body = data + TISDBTDescriptor::COMMON_HEADER_LENGTH;
    const U32 offset = TISDBTDescriptor::COMMON_HEADER_LENGTH + fieldsLength;
    const U32 count = dataLength > offset ? dataLength - offset : 0;
    if (!descriptorBytesInBuffer(body, limit, fieldsLength + count, errorCode))
        return FALSE;
    copyByteBlock(body + fieldsLength, count, block, size);
    return TRUE;
}

// The owned blocks of the download records (module info, additional
// information, private data): count bytes at from copied into block with
// ParserUtils::parseByteArray, which warns about the fresh (null) target
// on every copy, as receivers' logs have always shown. A copy that yields
// nothing logs failLine and stores ERROR_INVALID_STRING.
inline BOOL copyDownloadBlock(U8* from, U8 count, VURO_U8*& block, const char* failLine, U16* errorCode)
{
    ParserUtils::parseByteArray(from, block, count);
    if (block)
        return TRUE;
    VURO_LOGW(failLine, VURO_LOG_ORIGIN);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
    return FALSE;
}

// Logs a class's length line (its format reads "%s: <class>::parse: Longer
// data length is required: %u < %u. Aborting!") with count and required,
// stores ERROR_INVALID_DESCRIPTOR_LENGTH and returns FALSE.
inline BOOL descriptorLengthFailure(const char* lengthLine, U32 count, U32 required, U16* errorCode)
{
    VURO_LOGW(lengthLine, VURO_LOG_ORIGIN, count, required);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DESCRIPTOR_LENGTH);
    return FALSE;
}

// reserved (7) level (1) reserved (3) reference_PID (13): the three body
// bytes of the hierarchical transmission and copyright descriptors (data is
// the descriptor, limit the end of the buffer). Returns the body length, or 0
// with ERROR_INVALID_DESCRIPTOR_LENGTH when the bytes pass limit.
inline U32 readLevelAndReferencePID(const U8* data, const U8* limit, VURO_U8& level, VURO_U16& referencePID,
                                    U16* errorCode)
{
    const U32 bodyLength = 3;
    const U8* body = data + TISDBTDescriptor::COMMON_HEADER_LENGTH;
    if (!descriptorBytesInBuffer(body, limit, bodyLength, errorCode))
        return 0;
    level = static_cast<VURO_U8>(body[0] & 0x01);
    referencePID = static_cast<VURO_U16>(((body[1] & 0x1F) << 8) | body[2]);
    return bodyLength;
}

// digital_recording_control_data (2) maximum_bitrate_flag (1) (1)
// copy_control_type (2) APS_control_data (2): the flags byte shared by the
// digital copy control descriptor and its component entries. APS_control_data
// is only taken when copy_control_type is not 0 (it is undefined otherwise).
inline void readCopyControlFlags(U8 flags, VURO_U8& digitalRecCtrlData, VURO_BOOL& maximumBitrate,
                                 VURO_U8& copyControlType, VURO_U8& apsControlData)
{
    digitalRecCtrlData = static_cast<VURO_U8>(flags >> 6);
    maximumBitrate = (flags & 0x20) != 0;
    copyControlType = static_cast<VURO_U8>((flags & 0x0C) >> 2);
    if (copyControlType != 0)
        apsControlData = static_cast<VURO_U8>(flags & 0x03);
}

} // namespace Vuro

#endif
