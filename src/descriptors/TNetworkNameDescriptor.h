#ifndef VURO_TNETWORK_NAME_DESCRIPTOR_H
#define VURO_TNETWORK_NAME_DESCRIPTOR_H

#include <string>

#include "TISDBTDescriptor.h"

namespace Vuro {

/// network_name_descriptor (0x40): the whole body is the network's name, as
/// raw text bytes.
class TNetworkNameDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x40;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    TNetworkNameDescriptor(U8* data, U32 length);
    virtual ~TNetworkNameDescriptor();

    /// *parsedLength receives the number of name bytes.
    static TNetworkNameDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TNetworkNameDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                         const U8* limit);

    std::string getNetworkName() const { return m_sNetworkName; }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    std::string m_sNetworkName;
};

} // namespace Vuro

#endif
