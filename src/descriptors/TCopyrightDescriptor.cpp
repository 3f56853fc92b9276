#include "TCopyrightDescriptor.h"

#include "DescriptorBodySupport.h"

namespace Vuro {

TCopyrightDescriptor::TCopyrightDescriptor(U8* data, U32 length)
    : TISDBTDescriptor(DESCRIPTOR_TAG, data, length), m_iHierarchicalLevel(0), m_iReferencePID(0)
{
}

TCopyrightDescriptor::~TCopyrightDescriptor() = default;

TCopyrightDescriptor* TCopyrightDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                  U16* errorCode)
{
    return parseDescriptor<TCopyrightDescriptor>(sectionData, dataLength, parsedLength, errorCode, nullptr);
}

TCopyrightDescriptor* TCopyrightDescriptor::parse(U8* sectionData, U32 dataLength, U32* parsedLength,
                                                  U16* errorCode, const U8* limit)
{
    return parseDescriptor<TCopyrightDescriptor>(sectionData, dataLength, parsedLength, errorCode, limit);
}

BOOL TCopyrightDescriptor::parseBody(U32, const U8* limit, U32& parsedLength, U16* errorCode)
{
    // The receiver reads this descriptor with the hierarchical transmission
    // layout (level bit, 13-bit reference PID), not as copyright_identifier
    // and additional info; intended, its users expect these two fields.
    parsedLength = readLevelAndReferencePID(m_pData, limit, m_iHierarchicalLevel, m_iReferencePID, errorCode);
    return parsedLength != 0;
}

} // namespace Vuro
