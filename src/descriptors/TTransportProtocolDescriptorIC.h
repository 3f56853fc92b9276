#ifndef VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_IC_H
#define VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_IC_H

#include <list>
#include <string>
#include <utility>

#include "TTransportProtocolDescriptor.h"

namespace Vuro {

/// Transport protocol selector of the interactive (return) channel
/// (protocol_id 3): URL entries to the end of the descriptor, each URL_base
/// (8-bit length, bytes), URL_extension_count (8) and that many URL
/// extensions (8-bit length, bytes). parse refuses protocol 3, so an object is
/// only filled by calling parseData on it. It reports the data carousel type
/// and protocol 4, as receivers have always seen it.
class TTransportProtocolDescriptorIC : public TTransportProtocolDescriptor {
public:
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_SPECIFIC_LENGTH = 3;

    using URLEntry = std::pair<std::string, std::list<std::string>>;

    TTransportProtocolDescriptorIC(U8* data, U32 length);
    /// A copy of the label and the URL lists, without raw bytes.
    explicit TTransportProtocolDescriptorIC(TTransportProtocolDescriptorIC* source);
    virtual ~TTransportProtocolDescriptorIC();

    /// Reads nothing at or beyond sectionData + dataLength.
    BOOL parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode) override;

    /// Number of URL bases.
    U32 getURLCount() const { return static_cast<U32>(m_pURLs.size()); }
    /// Empty / 0 at or beyond the counts.
    std::string getURLBase(U32 index) const;
    U32 getURLExtensionCount(U32 index) const;
    std::string getURLExtension(U32 index, U32 extensionIndex) const;

private:
    const URLEntry* entry(U32 index) const;

    std::list<URLEntry> m_pURLs;
};

} // namespace Vuro

#endif
