#ifndef VURO_TDOWNLOAD_CONTENT_DESCRIPTOR_H
#define VURO_TDOWNLOAD_CONTENT_DESCRIPTOR_H

#include <string>

#include "../TISDBTItemList.h"
#include "TAppPortalUpdate.h"
#include "TCompatibilityDescriptor.h"
#include "TDownloadContentDescriptorItem.h"
#include "TISDBTDescriptor.h"

namespace Vuro {

/// download_content_descriptor (0xC9) of a software download trigger entry:
/// reboot (1) add_on (1) compatibility_flag (1) module_info_flag (1)
/// text_info_flag (1) reserved (3) component_size (32) download_id (32)
/// time_out_value_DII (32) leak_rate (22) reserved (2) component_tag (8)
/// [compatibilityDescriptor()] [num_of_modules (16) and the modules]
/// private_data_length (8) private_data [ISO_639_language_code (24)
/// text_length (8) text]. The private data is kept as an owned copy and
/// decoded as an application portal update, which the descriptor owns.
class TDownloadContentDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0xC9;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 18;

    TDownloadContentDescriptor(U8* data, U32 length);
    TDownloadContentDescriptor(const TDownloadContentDescriptor&) = delete;
    TDownloadContentDescriptor& operator=(const TDownloadContentDescriptor&) = delete;
    /// Frees the private data, the compatibility descriptor, the modules and
    /// the application portal update.
    virtual ~TDownloadContentDescriptor();

    /// *parsedLength receives the body bytes walked after the length byte.
    static TDownloadContentDescriptor* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                             VURO_U16* errorCode);
    static TDownloadContentDescriptor* parse(VURO_U8* data, VURO_U32 dataLength, VURO_U32* parsedLength,
                                             VURO_U16* errorCode, const U8* limit);

    /// The five flags (1 bit each): reboot after the download, add_on (adds to the installed software
    /// rather than replacing it), compatibility_flag, module_info_flag and text_info_flag (the parts present).
    ///@{
    VURO_U8 getReboot() const { return m_iReboot; }
    VURO_U8 getAddOn() const { return m_iAddOn; }
    VURO_U8 getCompatibilityFlag() const { return m_iCompatibilityFlag; }
    VURO_U8 getModuleInfoFlag() const { return m_iModuleInfoFlag; }
    VURO_U8 getTextInfoFlag() const { return m_iTextInfoFlag; }
    ///@}
    /// Bytes of the whole download.
    VURO_U32 getComponentSize() const { return m_iComponentSize; }
    VURO_U32 getDownloadID() const { return m_iDownloadID; }
    /// Milliseconds a receiver waits for the DII of the data carousel.
    VURO_U32 getTimeOutValueDII() const { return m_iTimeOutValueDII; }
    /// leak_rate (22), in units of 50 bytes per second.
    VURO_U32 getLeakRate() const { return m_iLeakRate; }
    /// The component_tag of the stream carrying the download (see the PMT's stream identifiers).
    VURO_U8 getComponentTag() const { return m_iComponentTag; }
    VURO_U8 getPrivateDataLength() const { return m_iPrivateDataLength; }
    /// Null when the descriptor carries no private data.
    VURO_U8* getPrivateData() const { return m_iPrivateData; }
    /// ISO_639_language_code and the text, present with text_info_flag (empty otherwise).
    ///@{
    std::string getLanguageCode() const { return m_sLanguageCode; }
    std::string getText() const { return m_sText; }
    ///@}
    /// Null without compatibility_flag.
    TCompatibilityDescriptor* getCompatibilityDescriptor() const { return m_pCompatibilityDesc; }
    /// The private data decoded as an application portal update; null when
    /// there is no private data or it could not be decoded. The descriptor
    /// keeps ownership.
    TAppPortalUpdate* getAppPortalUpdateDescriptor() const { return appPortalUpdateDescriptor; }

    /// Modules by 0-based position; null / FALSE past the end.
    VURO_U32 getDownloadContentDescriptorItemSize() const { return m_pItems.size(); }
    void addDownloadContentDescriptorItem(TDownloadContentDescriptorItem* item) { m_pItems.add(item); }
    TDownloadContentDescriptorItem* getDownloadContentDescriptorItem(VURO_U8 index) const
    {
        return m_pItems.get(index);
    }
    /// Unlinks and deletes the module.
    BOOL removeDownloadContentDescriptorItem(VURO_U8 index) { return m_pItems.remove(index); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);
    BOOL parseText(U8*& position, U32 left, const U8* limit, U16* errorCode);
    // requireData for the count bytes at position.
    BOOL require(const U8* position, U32 count, const U8* limit, U16* errorCode) const;

    VURO_U8 m_iReboot;
    VURO_U8 m_iAddOn;
    VURO_U8 m_iCompatibilityFlag;
    VURO_U8 m_iModuleInfoFlag;
    VURO_U8 m_iTextInfoFlag;
    VURO_U32 m_iComponentSize;
    VURO_U32 m_iDownloadID;
    VURO_U32 m_iTimeOutValueDII;
    VURO_U32 m_iLeakRate;
    VURO_U8 m_iComponentTag;
    VURO_U8 m_iPrivateDataLength;
    VURO_U8* m_iPrivateData;
    std::string m_sLanguageCode;
    std::string m_sText;
    TCompatibilityDescriptor* m_pCompatibilityDesc;
    TISDBTItemList<TDownloadContentDescriptorItem> m_pItems;
    TAppPortalUpdate* appPortalUpdateDescriptor;
};

} // namespace Vuro

#endif
