#include <thread>

#include "FuzzEntries.h"

namespace VuroFuzz {

using namespace Vuro;

namespace {

// Parses D from the whole input and hands it to use; the last input byte
// picks positions for the add / remove sequences.
template <class D, class Use>
void parsed(U8* data, U32 length, Use use)
{
    U32 parsedLength = 0;
    U16 code = 0;
    D* object = D::parse(data, length, &parsedLength, &code);
    if (!object)
        return;
    use(*object, length ? data[length - 1] : 0);
    delete object;
}

template <class T, class Use>
void parsedTable(U8* data, U32 length, Use use)
{
    U16 code = 0;
    T* table = T::parse(data, length, 1, 1, &code, nullptr);
    if (!table)
        return;
    use(*table, length ? data[length - 1] : 0);
    delete table;
}

// Positional lists: a null entry appended, reads and removals out of range,
// one removal at the picked position, then every entry removed from the front.
#define VURO_LIST_SEQUENCE(D, ADD, GET, REMOVE, SIZE)                                                          \
    {#D "/sequence", [](U8* data, U32 length) {                                                               \
         parsed<D>(data, length, [](D& object, U8 pick) {                                                      \
             object.ADD(nullptr);                                                                              \
             object.GET(static_cast<U8>(object.SIZE()));                                                       \
             object.REMOVE(static_cast<U8>(object.SIZE()));                                                    \
             object.REMOVE(static_cast<U8>(pick % (object.SIZE() + 1)));                                       \
             while (object.SIZE() && object.REMOVE(0)) {                                                       \
             }                                                                                                 \
             object.GET(0);                                                                                    \
         });                                                                                                   \
     }}

// Keyed maps: null added, every key read and removed twice.
template <class Object, class Keys, class Get, class Remove>
void keyedSequence(Object& object, Keys keys, Get get, Remove remove)
{
    for (const auto& key : keys) {
        get(object, key);
        remove(object, key);
        remove(object, key);
    }
}

void pmtSequence(U8* data, U32 length)
{
    parsedTable<TPMTTable>(data, length, [](TPMTTable& table, U8 pick) {
        BOOL inherited = FALSE;
        for (U32 i = 0; i < table.size(); ++i) {
            TProgramMap* entry = table.getProgramMap(static_cast<U8>(i));
            if (!entry)
                continue;
            for (BOOL inherit : {FALSE, TRUE}) {
                entry->getCAIdentifierDescriptor(inherit, &inherited);
                entry->getCopyrightDescriptor(inherit, &inherited);
                entry->getCountryAvailabilityDescriptor(inherit, &inherited);
                entry->getLinkageDescriptor(inherit, &inherited);
                entry->getComponentDescriptor(inherit, &inherited);
                entry->getMosaicDescriptor(inherit, &inherited);
                entry->getStreamIdentifierDescriptor(inherit, &inherited);
                entry->getParentalRatingDescriptor(inherit, &inherited);
                entry->getHierarchicalTransmissionDescriptor(inherit, &inherited);
                entry->getDigitalCopyControlDescriptor(inherit, &inherited);
                entry->getEmergencyInformationDescriptor(inherit, &inherited);
                entry->getDataComponentDescriptor(inherit, &inherited);
                entry->getSystemManagementDescriptor(inherit, &inherited);
                entry->getTargetRegionDescriptor(inherit, &inherited);
                entry->getVideoDecodeControlDescriptor(inherit, &inherited);
                entry->getContentAvailabilityDescriptor(inherit, &inherited);
                entry->getCarouselCompatibleCompositeDescriptor(inherit, &inherited);
                entry->getConditionalPlaybackDescriptor(inherit, &inherited);
                entry->getAVCVideoDescriptor(inherit, &inherited);
                entry->getAVCTimingAndHRDDescriptor(inherit, &inherited);
                entry->getAACDescriptor(inherit, &inherited);
                entry->getCarouselIdentifierDescriptor(inherit, &inherited);
                entry->getISO639LanguageDescriptor(inherit, &inherited);
            }
            if (TCarouselIdentifierDescriptor* carousel = entry->getCarouselIdentifierDescriptor(FALSE, &inherited))
                (void)(carousel->getModuleVersion() + carousel->getModuleID() + carousel->getBlockSize() +
                       carousel->getCompressionMethod() + carousel->getOriginalSize() + carousel->getTimeOut());
            table.getProgramMap(entry->getStreamType(), pick);
            table.getProgramMapByComponentTag(pick);
            table.getProgramMapsByStreamType(entry->getStreamType());
        }
        table.getCAIdentifierDescriptor();
        table.getCountryAvailabilityDescriptor();
        table.getLinkageDescriptor();
        table.getComponentDescriptor();
        table.getMosaicDescriptor();
        table.getStreamIdentifierDescriptor();
        table.getParentalRatingDescriptor();
        table.getHierarchicalTransmissionDescriptor();
        table.getEmergencyInformationDescriptor();
        table.getDataComponentDescriptor();
        table.getSystemManagementDescriptor();
        table.getTargetRegionDescriptor();
        table.getVideoDecodeControlDescriptor();
        table.getCarouselCompatibleCompositeDescriptor();
        table.getConditionalPlaybackDescriptor();
        table.getAVCVideoDescriptor();
        table.getAVCTimingAndHRDDescriptor();
        table.getAACDescriptor();
        table.getISO639LanguageDescriptor();
        table.addProgramMap(nullptr);
        table.removeProgramMap(static_cast<U8>(pick % (table.size() + 1)));
        while (table.size() && table.removeProgramMap(0)) {
        }
        table.getProgramMap(0);
    });
}

void nitSequence(U8* data, U32 length)
{
    parsedTable<TNITTable>(data, length, [](TNITTable& table, U8) {
        table.getServiceListDescriptor();
        table.getTerrestrialDeliverySystemDescriptor();
        table.getPartialReceptionDescriptor();
        table.getTSInformationDescriptor();
        for (U16 id : table.getTransportStreamIDs())
            if (TTransportStreamInfo* entry = table.getTransportStreamInfo(id)) {
                entry->getSystemManagementDescriptor();
                entry->getLinkageDescriptor();
                entry->getEmergencyInformationDescriptor();
            }
        table.addTransportStreamInfo(nullptr);
        keyedSequence(
            table, table.getTransportStreamIDs(), [](TNITTable& t, U16 id) { t.getTransportStreamInfo(id); },
            [](TNITTable& t, U16 id) { t.removeTransportStreamInfo(id); });
    });
}

void sdtSequence(U8* data, U32 length)
{
    parsedTable<TSDTTable>(data, length, [](TSDTTable& table, U8) {
        table.addServiceDescription(nullptr);
        keyedSequence(
            table, table.getServiceIDs(), [](TSDTTable& t, U16 id) { t.getServiceDescription(id); },
            [](TSDTTable& t, U16 id) { t.removeServiceDescription(id); });
    });
}

void patSequence(U8* data, U32 length)
{
    parsedTable<TPATTable>(data, length, [](TPATTable& table, U8) {
        table.getGenericDataField();
        table.add(nullptr);
        keyedSequence(
            table, table.getProgramNumbers(), [](TPATTable& t, U16 id) { t.get(id); },
            [](TPATTable& t, U16 id) { t.remove(id); });
    });
}

void aitSequence(U8* data, U32 length)
{
    parsedTable<TAITTable>(data, length, [](TAITTable& table, U8) {
        table.getApplicationNameDescriptor();
        table.getGingaApplicationLocationDescriptor();
        if (TExternalApplicationAuthorizationDescriptor* authorisation =
                table.getExternalApplicationAuthorizationDescriptor())
            authorisation->add(nullptr);
        table.addApplication(nullptr);
        keyedSequence(
            table, table.getApplicationsIDs(), [](TAITTable& t, const std::string& id) { t.getApplication(id); },
            [](TAITTable& t, const std::string& id) { t.removeApplication(id); });
    });
}

void sdttSequence(U8* data, U32 length)
{
    parsedTable<TSDTTTable>(data, length, [](TSDTTTable& table, U8 pick) {
        for (U32 i = 0; i < table.getDownloadContentSize(); ++i)
            if (TDownloadContent* content = table.getDownloadContent(static_cast<U8>(i))) {
                content->setParentSDTTTable(&table);
                content->addScheduleInfo(nullptr);
                content->removeScheduleInfo(static_cast<U8>(pick % (content->getScheduleInfoSize() + 1)));
                while (content->getScheduleInfoSize() && content->removeScheduleInfo(0)) {
                }
            }
        table.addDownloadContent(nullptr);
        table.removeDownloadContent(static_cast<U8>(pick % (table.getDownloadContentSize() + 1)));
        while (table.getDownloadContentSize() && table.removeDownloadContent(0)) {
        }
    });
}

// Ginga parameters read through parseData (data at the first length byte).
void gingaParameters(U8* data, U32 length)
{
    U32 read = 0;
    U16 code = 0;
    TGingaNCLApplicationDescriptor descriptor(data, length);
    descriptor.parseData(data, length, length & 1 ? nullptr : &read, &code);
}

// Three receiver threads parse the same section at once, each against its
// own previous table, read the events and delete their tables while the
// others still parse (the tables share the platform mutex handles).
void eitThreads(U8* data, U32 length)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i)
        threads.emplace_back([data, length]() {
            U16 code = 0;
            TEITTable* first = TEITTable::parse(data, length, 1, 1, &code, nullptr);
            TEITTable* second = TEITTable::parse(data, length, 1, 1, &code, first);
            delete first;
            if (second) {
                const TEITTable& events = *second;
                for (U16 id : events.getEventsIDs())
                    events.getEvent(id);
                second->addItem(nullptr);
            }
            delete second;
        });
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

std::vector<Entry> sequenceEntries()
{
    return {
        {"TPMTTable/sequence", pmtSequence},
        {"TNITTable/sequence", nitSequence},
        {"TSDTTable/sequence", sdtSequence},
        {"TPATTable/sequence", patSequence},
        {"TAITTable/sequence", aitSequence},
        {"TSDTTTable/sequence", sdttSequence},
        {"TEITTable/threads", eitThreads},
        {"TGingaNCLApplicationDescriptor::parseData", gingaParameters},
        VURO_LIST_SEQUENCE(TNVODReferenceDescriptor, add, get, remove, size),
        VURO_LIST_SEQUENCE(TMosaicDescriptor, addCell, getCell, removeCell, size),
        VURO_LIST_SEQUENCE(TTSInformationDescriptor, addTransmissionType, getTransmissionType,
                           removeTransmissionType, getTransmissionTypeCount),
        VURO_LIST_SEQUENCE(TPrefetchDescriptor, add, get, remove, size),
        VURO_LIST_SEQUENCE(TDIILocationDescriptor, add, get, remove, size),
        VURO_LIST_SEQUENCE(TEmergencyInformationDescriptor, add, get, remove, size),
        VURO_LIST_SEQUENCE(TDigitalCopyControlDescriptor, add, get, remove, size),
        VURO_LIST_SEQUENCE(TDownloadContentDescriptor, addDownloadContentDescriptorItem,
                           getDownloadContentDescriptorItem, removeDownloadContentDescriptorItem,
                           getDownloadContentDescriptorItemSize),
        VURO_LIST_SEQUENCE(TCompatibilityDescriptor, addCompatibilityDescriptorItem, getCompatibilityDescriptorItem,
                           removeCompatibilityDescriptorItem, getCompatibilityDescriptorItemSize),
    };
}

} // namespace VuroFuzz
