#ifndef VURO_TLCM_DESCRIPTOR_H
#define VURO_TLCM_DESCRIPTOR_H

#include "TISDBTDescriptor.h"

namespace Vuro {

/// Libras control message (sign-language presentation, tag 0x7C):
/// message_id (8) message_length (16) reserved (4) resolution (4), the
/// dictionary window position and size dph, dpv, dfw, dfh (16 each) and
/// Libras_content_type (8). Callers decode it directly; no table dispatches
/// to it (its tag is the AAC descriptor's).
///
/// A shorter pattern than the other descriptors: no header check, no error
/// code, no parsed length and no log line.
class TLCMDescriptor : public TISDBTDescriptor {
public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x7C;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 2;

    TLCMDescriptor(U8* data, U32 length);
    virtual ~TLCMDescriptor();

    /// Null when the data holds fewer than 15 bytes (bytes 2 to 14 are read);
    /// parsedLength and errorCode are never written.
    static TLCMDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);

    U8 getMessageId() const { return message_id; }
    U16 getMessageLength() const { return message_length; }
    U8 getResolution() const { return resolution; }
    /// The dictionary version and the three service ids are not carried by
    /// the message and stay 0.
    U8 getDictionaryVersion() const { return dictionary_version; }
    U16 getDph() const { return dph; }
    U16 getDpv() const { return dpv; }
    U16 getDfw() const { return dfw; }
    U16 getDfh() const { return dfh; }
    U8 getLibrasContentType() const { return librasContentType; }
    U16 getNetworkId() const { return networkId; }
    U16 getTransportStreamId() const { return transportStreamId; }
    U16 getServiceId() const { return serviceId; }

private:
    VURO_U8 message_id;
    VURO_U16 message_length;
    VURO_U8 resolution;
    VURO_U8 dictionary_version;
    VURO_U16 dph;
    VURO_U16 dpv;
    VURO_U16 dfw;
    VURO_U16 dfh;
    VURO_U8 librasContentType;
    VURO_U16 networkId;
    VURO_U16 transportStreamId;
    VURO_U16 serviceId;
};

} // namespace Vuro

#endif
