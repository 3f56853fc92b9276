#ifndef VURO_TDOWNLOAD_CONTENT_H
#define VURO_TDOWNLOAD_CONTENT_H

#include <list>

#include "../TISDBTItemList.h"
#include "../descriptors/TDownloadContentDescriptor.h"
#include "TScheduleInfo.h"

namespace Vuro {

class TSDTTTable;

/// One content of a software download trigger section: group (4)
/// target_version (12) new_version (12) download_level (2)
/// version_indicator (2) content_description_length (12) reserved (4)
/// schedule_description_length (12) schedule_timeshift_information (4), the
/// schedule periods, then the descriptors (content_description_length covers
/// both). The entry owns its periods and its download content descriptor.
class TDownloadContent {
public:
    TDownloadContent();
    TDownloadContent(const TDownloadContent&) = delete;
    TDownloadContent& operator=(const TDownloadContent&) = delete;
    virtual ~TDownloadContent();

    /// parseDescriptors has no effect. *itemLength receives the bytes the
    /// entry walked. Descriptors keep pointing into sectionData.
    static TDownloadContent* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                   U16* errorCode);
    static TDownloadContent* parse(U8* sectionData, U32 dataLength, BOOL parseDescriptors, U32* itemLength,
                                   U16* errorCode, const U8* limit);

    /// The table the entry belongs to; null unless a caller set it (the
    /// table's parse links nothing).
    void setParentSDTTTable(TSDTTTable* table) { m_pParentSDTTTable = table; }
    TSDTTTable* getParentSDTTTable() const { return m_pParentSDTTTable; }

    /// group (4) of the content within the maker and model.
    U8 getGroup() const { return m_iGroup; }
    /// target_version (12): the installed software version the content applies to (see getVersionIndicator).
    U16 getTargetVersion() const { return m_iTargetVersion; }
    /// new_version (12): the software version after the download.
    U16 getNewVersion() const { return m_iNewVersion; }
    /// download_level (2): 1 mandatory, 0 optional.
    U8 getDownloadLevel() const { return m_iDownloadLevel; }
    /// version_indicator (2): how target_version applies: 0 every version (target_version ignored),
    /// 1 that version and later, 2 that version and earlier, 3 that version only.
    U8 getVersionIndicator() const { return m_iVersionIndicator; }
    /// schedule_timeshift_information (4): 0 when the same schedule serves every
    /// broadcast of the content; other values say the periods shift between services.
    U16 getScheduleTimeShiftInfo() const { return m_iScheduleTimeShiftInfo; }
    /// Null when the entry carries none.
    TDownloadContentDescriptor* getDownloadContentDescriptor() const { return m_pDownloadContentDesc; }

    /// The download content descriptor for tag 0xC9, else null.
    TISDBTDescriptor* getDescriptor(U8 tag) const;
    /// 0xC9 when the entry has that descriptor, else empty.
    std::list<U8> getDescriptorTags() const;

    /// Schedule periods by 0-based position in section order; null / FALSE
    /// past the end.
    U32 getScheduleInfoSize() const { return m_pItems.size(); }
    TScheduleInfo* getScheduleInfo(U8 index) const { return m_pItems.get(index); }
    /// Appends; the entry takes ownership.
    void addScheduleInfo(TScheduleInfo* info) { m_pItems.add(info); }
    /// Unlinks and deletes the period.
    BOOL removeScheduleInfo(U8 index) { return m_pItems.remove(index); }

private:
    static TDownloadContent* refuseLength(TDownloadContent* content, U32 length, U32 available, U16* errorCode);

    TSDTTTable* m_pParentSDTTTable;
    VURO_U8 m_iGroup;
    VURO_U16 m_iTargetVersion;
    VURO_U16 m_iNewVersion;
    VURO_U8 m_iDownloadLevel;
    VURO_U8 m_iVersionIndicator;
    VURO_U16 m_iScheduleTimeShiftInfo;
    TDownloadContentDescriptor* m_pDownloadContentDesc;
    TISDBTItemList<TScheduleInfo> m_pItems;
};

} // namespace Vuro

#endif
