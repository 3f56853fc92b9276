#ifndef VURO_PARSER_UTILS_H
#define VURO_PARSER_UTILS_H

#include <string>

#include "VuroISDBTUtils.h"

namespace Vuro {

/// Text and byte-block extraction used by the descriptor parsers. Neither
/// operation checks pData: callers hand valid memory of the stated length.
class ParserUtils {
public:
    /// Copies length raw bytes from pData into target (no character-set
    /// conversion, no stop at a zero byte) when they fit in maxLength, the bytes
    /// available at pData. length 0 with maxLength non-zero reads a one-byte
    /// length prefix first. Returns the bytes consumed (prefix included), or -1
    /// with target untouched when the text does not fit.
    static VURO_S32 parseStr(VURO_U8* pData, std::string& target, VURO_U32 length, VURO_U32 maxLength);

    /// Sets target to a new array (array new; the caller owns it) holding a
    /// copy of length bytes from pData, or to null when length is 0. A buffer
    /// target held before is not freed.
    static void parseByteArray(VURO_U8* pData, VURO_U8*& target, VURO_U8 length);
};

} // namespace Vuro

#endif
