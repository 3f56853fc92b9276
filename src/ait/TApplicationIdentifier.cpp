#include "TApplicationIdentifier.h"

#include <cstdio>

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

TApplicationIdentifier::TApplicationIdentifier() : m_iOrganizationID(0), m_iApplicationID(0)
{
}

TApplicationIdentifier::TApplicationIdentifier(U32 organizationId, std::uint64_t applicationId)
    : m_iOrganizationID(organizationId), m_iApplicationID(applicationId)
{
}

TApplicationIdentifier::TApplicationIdentifier(TApplicationIdentifier* source)
    : m_iOrganizationID(source ? source->m_iOrganizationID : 0), m_iApplicationID(source ? source->m_iApplicationID : 0)
{
}

TApplicationIdentifier::~TApplicationIdentifier() = default;

TApplicationIdentifier* TApplicationIdentifier::parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors,
                                                      U32* itemLength, U16* errorCode)
{
    return parse(sectionData, dataLength, parseDescriptors, itemLength, errorCode,
                 outerLimit(sectionData, dataLength));
}

TApplicationIdentifier* TApplicationIdentifier::parse(U8* sectionData, U32 dataLength, BOOL /*parseDescriptors*/,
                                                      U32* itemLength, U16* errorCode, const U8* limit)
{
    if (dataLength < MINIMUM_DESCRIPTOR_LENGTH || !fits(sectionData, limit, MINIMUM_DESCRIPTOR_LENGTH)) {
        VURO_LOGW("%s: TApplicationIdentifier::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < MINIMUM_DESCRIPTOR_LENGTH ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TApplicationIdentifier* identifier = new TApplicationIdentifier(readU32(sectionData), readU16(sectionData + 4));
    if (itemLength)
        *itemLength = MINIMUM_DESCRIPTOR_LENGTH;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return identifier;
}

std::string TApplicationIdentifier::calculateHashID(U32 organizationId, std::uint64_t applicationId)
{
    char text[128];
    std::snprintf(text, sizeof(text), "%08X%llX", organizationId, static_cast<unsigned long long>(applicationId));
    return std::string(text);
}

std::string TApplicationIdentifier::calculateHashID(TApplicationIdentifier* appIdentifier)
{
    return appIdentifier ? calculateHashID(appIdentifier->m_iOrganizationID, appIdentifier->m_iApplicationID)
                         : std::string();
}

} // namespace Vuro
