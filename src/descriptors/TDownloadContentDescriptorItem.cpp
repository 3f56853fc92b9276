#include "TDownloadContentDescriptorItem.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

namespace {

const U32 kFixedLength = 7; // module_id, module_size, module_info_length

TDownloadContentDescriptorItem* refuseLength(U32 length, U16* errorCode)
{
    VURO_LOGW("%s: TDownloadContentDescriptorItem::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
              length);
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
    return nullptr;
}

} // namespace

TDownloadContentDescriptorItem::TDownloadContentDescriptorItem()
    : m_iModuleID(0), m_iModuleSize(0), m_iModuleInfoLength(0), m_iModuleInfo(nullptr)
{
}

TDownloadContentDescriptorItem::~TDownloadContentDescriptorItem()
{
    delete[] m_iModuleInfo;
}

TDownloadContentDescriptorItem* TDownloadContentDescriptorItem::parse(VURO_U8* data, VURO_U32 dataLength,
                                                                      VURO_U32* parsedLength, VURO_U16* errorCode)
{
    return parse(data, dataLength, parsedLength, errorCode, outerLimit(data, dataLength));
}

TDownloadContentDescriptorItem* TDownloadContentDescriptorItem::parse(VURO_U8* data, VURO_U32 dataLength,
                                                                      VURO_U32* parsedLength, VURO_U16* errorCode,
                                                                      const U8* limit)
{
    if (dataLength <= 6)
        return refuseLength(dataLength, errorCode);
    // module_info is not checked against dataLength, only against the end
    // of the buffer.
    if (!fits(data, limit, kFixedLength) || !fits(data, limit, kFixedLength + data[6]))
        return refuseLength(bytesLeft(data, limit), errorCode);
    TDownloadContentDescriptorItem* item = new TDownloadContentDescriptorItem();
    item->m_iModuleID = readU16(data);
    item->m_iModuleSize = readU32(data + 2);
    item->m_iModuleInfoLength = data[6];
    // "Mondule": the spelling receivers' log filters match.
    if (item->m_iModuleInfoLength != 0 &&
        !copyDownloadBlock(data + kFixedLength, item->m_iModuleInfoLength, item->m_iModuleInfo,
                           "%s: TDownloadContentDescriptorItem:: parse: ERROR: parsing Mondule Info. Aborting!",
                           errorCode)) {
        delete item;
        return nullptr;
    }
    if (parsedLength)
        *parsedLength = kFixedLength + item->m_iModuleInfoLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return item;
}

} // namespace Vuro
