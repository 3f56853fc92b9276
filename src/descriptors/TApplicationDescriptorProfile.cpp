#include "TApplicationDescriptorProfile.h"

#include "../TISDBTTable.h"
#include "../utils/VuroParseSupport.h"

namespace Vuro {

namespace {
const U32 kProfileLength = 5;
} // namespace

TApplicationDescriptorProfile::TApplicationDescriptorProfile()
    : m_iApplicationProfile(0), m_iVersionMajor(0), m_iVersionMinor(0), m_iVersionMicro(0)
{
}

TApplicationDescriptorProfile::~TApplicationDescriptorProfile() = default;

TApplicationDescriptorProfile* TApplicationDescriptorProfile::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode)
{
    return parse(sectionData, dataLength, parsedLength, errorCode, outerLimit(sectionData, dataLength));
}

TApplicationDescriptorProfile* TApplicationDescriptorProfile::parse(U8* sectionData, U32 dataLength,
                                                                    U32* parsedLength, U16* errorCode,
                                                                    const U8* limit)
{
    if (dataLength < kProfileLength || !fits(sectionData, limit, kProfileLength)) {
        VURO_LOGW("%s: TApplicationDescriptorProfile::parse: Item length not valid: %u. Aborting!", VURO_LOG_ORIGIN,
                  dataLength < kProfileLength ? dataLength : bytesLeft(sectionData, limit));
        ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_INVALID_DATA_LENGTH);
        return nullptr;
    }
    TApplicationDescriptorProfile* profile = new TApplicationDescriptorProfile();
    profile->m_iApplicationProfile = readU16(sectionData);
    profile->m_iVersionMajor = sectionData[2];
    profile->m_iVersionMinor = sectionData[3];
    profile->m_iVersionMicro = sectionData[4];
    if (parsedLength)
        *parsedLength = kProfileLength;
    ISDBTUtils::setErrorCode(errorCode, TISDBTTable::ERROR_OK);
    return profile;
}

} // namespace Vuro
