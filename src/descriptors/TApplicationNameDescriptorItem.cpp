#include "TApplicationNameDescriptorItem.h"

#include "../TISDBTTable.h"
#include "../utils/ParserUtils.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kMinimumLength = 4;
const U32 kLanguageCodeLength = 3;
} // namespace

TApplicationNameDescriptorItem::TApplicationNameDescriptorItem() = default;

TApplicationNameDescriptorItem::TApplicationNameDescriptorItem(std::string languageCode, std::string name)
    : m_sLanguageCode(languageCode), m_sName(name)
{
}

TApplicationNameDescriptorItem::~TApplicationNameDescriptorItem() = default;

TApplicationNameDescriptorItem* TApplicationNameDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                      U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, itemLength, errorCode, outerLimit(sectionData, dataLength));
}

TApplicationNameDescriptorItem* TApplicationNameDescriptorItem::parse(U8* sectionData, U32 dataLength,
                                                                      U32* itemLength, U16* errorCode,
                                                                      const U8* limit)
{
    // The strings are read inside dataLength, which must itself lie inside the
    // buffer.
    if (dataLength < kMinimumLength || !fits(sectionData, limit, dataLength)) {
        VURO_LOGW("%s: TApplicationNameDescriptorItem::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < kMinimumLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TApplicationNameDescriptorItem* item = new TApplicationNameDescriptorItem();
    const auto badString = [&](const char* line) {
        VURO_LOGW(line, VURO_LOG_ORIGIN);
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_STRING);
        delete item;
        return nullptr;
    };
    if (ParserUtils::parseStr(sectionData, item->m_sLanguageCode, kLanguageCodeLength, dataLength) !=
        static_cast<S32>(kLanguageCodeLength))
        return badString("%s: TApplicationNameDescriptorItem:: parse: ERROR: parsing Language Code. Aborting!");
    const S32 nameRead =
        ParserUtils::parseStr(sectionData + kLanguageCodeLength, item->m_sName, 0, dataLength - kLanguageCodeLength);
    if (nameRead < 0)
        return badString("%s: TApplicationNameDescriptorItem:: parse: ERROR: parsing Name. Aborting!");
    if (itemLength)
        *itemLength = static_cast<U8>(kLanguageCodeLength + static_cast<U32>(nameRead));
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
