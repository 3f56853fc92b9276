#ifndef VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_H
#define VURO_TTRANSPORT_PROTOCOL_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// transport_protocol_descriptor (0x02) of the application signalling:
/// protocol_id (16), transport_protocol_label (8), then the selector bytes of
/// that protocol. The base reads the protocol_id and builds the variant that
/// reads the selector through parseData.
class TTransportProtocolDescriptor : public TISDBTDescriptor {
public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 2;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 3;

    enum Type { ObjectCarousel = 1, IP = 2, InteractiveChannel = 3, DataCarousel = 4, ProfileC = 5, DataPiping = 9 };

    TTransportProtocolDescriptor(Type type, U16 protocolId, U8* data, U32 length);
    virtual ~TTransportProtocolDescriptor();

    /// Reads the selector: data starts at protocol_id, dataLength is the
    /// descriptor_length. Logs the variant's line and stores its code on
    /// failure; on success *parsedLength (when given) receives the bytes read.
    virtual BOOL parseData(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode) = 0;

    /// protocol_id 1 and 5 build an object carousel variant (no profile-C
    /// object is ever parsed), 2 an IP and 4 a data carousel variant. Protocol 3
    /// (interactive channel) is refused without a line and any other protocol
    /// with the "Unknown protocol ID" line; both leave the header check's
    /// ERROR_OK in errorCode. *parsedLength receives what the selector read.
    static TTransportProtocolDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TTransportProtocolDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                               const U8* limit);

    /// A new copy chosen by the source's type (not its protocol id): object
    /// carousel -> OC, IP -> IP, interactive channel -> IC, data carousel -> DC,
    /// profile C -> PC; any other type logs and gives null. The label is copied.
    static TTransportProtocolDescriptor* clone(TTransportProtocolDescriptor* source);

    Type getType() const { return m_eMyType; }
    U16 getProtocolID() const { return m_iProtocolID; }
    U8 getTransportProtocolLabel() const { return m_iTransportProtocolLabel; }

protected:
    // For the selector readers: TRUE when need bytes at pos lie inside the
    // buffer the outermost parse was handed (always, when parseData is the
    // outermost call: its own dataLength bytes are that buffer).
    BOOL selectorFits(const U8* pos, U32 need) const;
    // Bytes from pos to the end of that buffer (U32 max without a limit).
    U32 selectorBytesLeft(const U8* pos) const;
    // TRUE when ParserUtils::parseStr(pos, target, 0, maxLength) reads only
    // bytes inside that buffer.
    BOOL selectorStringFits(const U8* pos, U32 maxLength) const;

    Type m_eMyType;
    VURO_U16 m_iProtocolID;
    VURO_U8 m_iTransportProtocolLabel;

private:
    // End of the outermost buffer while parse runs parseData; null otherwise.
    const U8* m_pReadLimit = nullptr;
};

} // namespace Vuro

#endif
