// Printers of the stream and content-protection descriptors (PMT entries,
// SDT services, EIT events).
#include "DescriptorPrinterSupport.h"

#include <algorithm>

using namespace Vuro;

namespace VuroTools {

namespace {

void caIdentifier(const TCAIdentifierDescriptor& d, TreeOut& out)
{
    printIds("CA_system_ids", d.getCASystemIDs(), d.getCASystemIDCount(), out);
}

void contentAvailability(const TContentAvailabilityDescriptor& d, TreeOut& out)
{
    static const char* const kRetention[] = {"no limit", "1 week", "2 days",  "1 day",
                                             "12 hours", "6 hours", "3 hours", "1.5 hours"};
    // The three flags as the library reports them (set when their bit is
    // clear), each with the bit the bytes carry.
    const WireBody wire = wireBody(d);
    const unsigned bits = wire.has(0) ? wire.u8(0) : 0;
    out.flag("image_constraint_token", d.isImageConstraintToken() != 0);
    if (wire.has(0))
        wireFlagIfDiffers(out, "image_constraint_token", d.isImageConstraintToken() != 0, (bits & 0x20) != 0);
    out.flag("retention_mode", d.isRetentionMode() != 0);
    if (wire.has(0))
        wireFlagIfDiffers(out, "retention_mode", d.isRetentionMode() != 0, (bits & 0x10) != 0);
    out.named("retention_state", d.getRetentionState(), 1, nameIn(kRetention, d.getRetentionState()));
    out.flag("encryption_mode", d.isEncryptionMode() != 0);
    if (wire.has(0))
        wireFlagIfDiffers(out, "encryption_mode", d.isEncryptionMode() != 0, (bits & 0x01) != 0);
}

void copyright(const TCopyrightDescriptor& d, TreeOut& out)
{
    // Decoded by the library with the hierarchical transmission layout; the
    // bytes carry copyright_identifier and additional information.
    out.number("hierarchical_level", d.getHierarchicalLevel());
    out.wireAbsent("hierarchical_level");
    out.hex("reference_PID", d.getReferencePID(), 4);
    out.wireAbsent("reference_PID");
    const WireBody wire = wireBody(d);
    if (wire.has(0, 4))
        out.wireOnly("copyright_identifier", wire.u32(0), 8);
}

void streamIdentifier(const TStreamIdentifierDescriptor& d, TreeOut& out)
{
    out.hex("component_tag", d.getComponentTag(), 2);
}

void hierarchicalTransmission(const THierarchicalTransmissionDescriptor& d, TreeOut& out)
{
    static const char* const kQualities[] = {"low quality", "high quality"};
    out.named("quality_level", d.getQualityLevel(), 1, nameIn(kQualities, d.getQualityLevel()));
    out.hex("reference_PID", d.getReferencePID(), 4);
}

const char* dataComponentName(U16 id)
{
    switch (id) {
    case TDataComponentDescriptor::COMPONENT_ID_GINGA_XML_BASE_MMEDIA_CODING: return "XML-based multimedia coding";
    case TDataComponentDescriptor::COMPONENT_ID_CAPTION_AND_SUPERIMPOSED: return "caption and superimposed text";
    case TDataComponentDescriptor::COMPONENT_ID_DATA_DOWNLOAD_SBTVD: return "data download";
    case TDataComponentDescriptor::COMPONENT_ID_OBJECT_CAROUSEL: return "object carousel";
    case TDataComponentDescriptor::COMPONENT_ID_CAPTION_1_SEG: return "one-seg caption";
    case TDataComponentDescriptor::COMPONENT_ID_GINGA_APP_EXECUTING_ENGINE: return "Ginga application execution engine";
    case TDataComponentDescriptor::COMPONENT_ID_GINGA_APP_INFORMATION_TABLE: return "Ginga application information table";
    case TDataComponentDescriptor::COMPONENT_ID_SBTVD_PROGRAM_INDEX_CONFIG: return "program index configuration";
    default: return nullptr;
    }
}

void dataComponent(const TDataComponentDescriptor& d, TreeOut& out)
{
    out.named("data_component_id", d.getDataComponentID(), 4, dataComponentName(d.getDataComponentID()));
    printOwnedBytes("additional_data_component_info", d.getAdditionalData(), d.getAdditionalDataSize(), out);
}

void targetRegion(const TTargetRegionDescriptor& d, TreeOut& out)
{
    out.hex("region_spec_type", d.getRegionSpecType(), 2);
    printOwnedBytes("target_region_spec", d.getSpecData(), d.getSpecSize(), out);
}

void videoDecodeControl(const TVideoDecodeControlDescriptor& d, TreeOut& out)
{
    static const char* const kFormats[] = {"1080p", "1080i", "720p", "480p", "480i", "240p", "120p"};
    out.flag("still_picture_flag", d.isStillPicture() != 0);
    out.flag("sequence_end_code_flag", d.isSequenceEndCode() != 0);
    out.named("video_encode_format", d.getVideoEncodeFormat(), 1, nameIn(kFormats, d.getVideoEncodeFormat()));
    // The library masks the format with 0x2C, dropping its bit 0x10.
    const WireBody wire = wireBody(d);
    if (wire.has(0)) {
        const unsigned format = (wire.u8(0) & 0x3C) >> 2;
        if (format != d.getVideoEncodeFormat())
            out.wireNamed("video_encode_format", format, 1, nameIn(kFormats, format));
    }
}

void conditionalPlayback(const TConditionalPlaybackDescriptor& d, TreeOut& out)
{
    out.hex("CA_system_id", d.getCASystemID(), 4);
    out.hex("CA_PID", d.getCAPID(), 4);
    printOwnedBytes("private_data", d.getPrivateData(), d.getPrivateDataSize(), out);
}

const char* avcProfileName(U8 profile)
{
    switch (profile) {
    case 66: return "Baseline";
    case 77: return "Main";
    case 88: return "Extended";
    case 100: return "High";
    default: return nullptr;
    }
}

void avcVideo(const TAVCVideoDescriptor& d, TreeOut& out)
{
    out.named("profile_idc", d.getProfileIDC(), 2, avcProfileName(d.getProfileIDC()));
    out.flag("constraint_set0_flag", d.isConstraintSet0() != 0);
    out.flag("constraint_set1_flag", d.isConstraintSet1() != 0);
    out.flag("constraint_set2_flag", d.isConstraintSet2() != 0);
    out.hex("AVC_compatible_flags", d.getAVCCompatibleFlags(), 2);
    out.number("level_idc", d.getLevelIDC());
    out.flag("AVC_still_present", d.isAVCStillPresent() != 0);
    out.flag("AVC_24_hour_picture_flag", d.isAVC24HourPicture() != 0);
}

// The fields the bytes carry after the first flag byte: 90kHz_flag, N and K
// when it is clear, num_units_in_tick, then the three closing flags.
struct WireAvcTiming {
    bool complete = false;
    bool has90kHz = false;
    bool hasNK = false;
    std::uint32_t n = 0, k = 0, unitsInTick = 0;
    unsigned closingFlags = 0;
};

WireAvcTiming wireAvcTiming(const WireBody& wire)
{
    WireAvcTiming timing;
    if (!wire.has(0))
        return timing;
    unsigned at = 1;
    if (wire.u8(0) & 0x01) {
        if (!wire.has(at))
            return timing;
        timing.has90kHz = (wire.u8(at++) & 0x80) != 0;
        timing.hasNK = !timing.has90kHz;
        if (timing.hasNK) {
            if (!wire.has(at, 8))
                return timing;
            timing.n = wire.u32(at);
            timing.k = wire.u32(at + 4);
            at += 8;
        }
        if (!wire.has(at, 4))
            return timing;
        timing.unitsInTick = wire.u32(at);
        at += 4;
    }
    if (!wire.has(at))
        return timing;
    timing.closingFlags = wire.u8(at);
    timing.complete = true;
    return timing;
}

void avcTimingAndHrd(const TAVCTimingAndHRDDescriptor& d, TreeOut& out)
{
    // The library reads N and K when 90kHz_flag is set (the bytes carry them
    // when it is clear) and the closing flags from num_units_in_tick's first
    // byte: beside each value, what the bytes carry.
    const WireAvcTiming wire = wireAvcTiming(wireBody(d));
    out.flag("hrd_management_valid_flag", d.isHRDManagementValid() != 0);
    out.flag("picture_and_timing_info_present", d.isPictTimingInfoPresent() != 0);
    if (d.isPictTimingInfoPresent()) {
        out.flag("90kHz_flag", d.is90kHz() != 0);
        if (d.is90kHz()) {
            out.number("N", d.getN());
            out.wireAbsent("N");
            out.number("K", d.getK());
            out.wireAbsent("K");
        } else if (wire.hasNK && wire.complete) {
            out.wireOnly("N", wire.n, 0);
            out.wireOnly("K", wire.k, 0);
        }
        out.number("num_units_in_tick", d.getNumUnitsInTick());
        if (wire.complete)
            wireIfDiffers(out, "num_units_in_tick", d.getNumUnitsInTick(), wire.unitsInTick, 0);
    }
    out.flag("fixed_frame_rate_flag", d.isFixedFrameRate() != 0);
    if (wire.complete)
        wireFlagIfDiffers(out, "fixed_frame_rate_flag", d.isFixedFrameRate() != 0, (wire.closingFlags & 0x80) != 0);
    out.flag("temporal_poc_flag", d.isTemporalPOC() != 0);
    if (wire.complete)
        wireFlagIfDiffers(out, "temporal_poc_flag", d.isTemporalPOC() != 0, (wire.closingFlags & 0x40) != 0);
    out.flag("picture_to_display_conversion_flag", d.isPict2DisplayConv() != 0);
    if (wire.complete)
        wireFlagIfDiffers(out, "picture_to_display_conversion_flag", d.isPict2DisplayConv() != 0,
                          (wire.closingFlags & 0x20) != 0);
}

const char* aacProfileName(U8 profile)
{
    switch (profile) {
    case TAACDescriptor::PROFILE_ACC_L1: return "AAC profile level 1";
    case TAACDescriptor::PROFILE_ACC_L2: return "AAC profile level 2";
    case TAACDescriptor::PROFILE_ACC_L4: return "AAC profile level 4";
    case TAACDescriptor::PROFILE_ACC_L5: return "AAC profile level 5";
    case TAACDescriptor::PROFILE_HIGH_EFFICIENCY_ACC_L2: return "HE-AAC profile level 2";
    case TAACDescriptor::PROFILE_HIGH_EFFICIENCY_ACC_L3: return "HE-AAC profile level 3";
    case TAACDescriptor::PROFILE_HIGH_EFFICIENCY_ACC_L4: return "HE-AAC profile level 4";
    case TAACDescriptor::PROFILE_HIGH_EFFICIENCY_ACC_L5: return "HE-AAC profile level 5";
    case TAACDescriptor::PROFILE_NOT_SPECIFIED: return "no audio profile and level specified";
    case TAACDescriptor::PROFILE_NO_AUDIO_INFO: return "no audio capability";
    default: return nullptr;
    }
}

void aac(const TAACDescriptor& d, TreeOut& out)
{
    out.named("profile_and_level", d.getProfileAndLevel(), 2, aacProfileName(d.getProfileAndLevel()));
    out.flag("AAC_type_flag", d.hasAACType() != 0);
    if (d.hasAACType())
        out.hex("AAC_type", d.getAACType(), 2);
    printOwnedBytes("additional_info", d.getAdditionalInfo(), d.getAdditionalInfoSize(), out);
}

void carouselIdentifier(const TCarouselIdentifierDescriptor& d, TreeOut& out)
{
    // The library keeps everything after carousel_id as private data; its
    // format-specific fields stay unset, so they are not shown.
    out.hex("carousel_id", d.getCarouselID(), 8);
    printOwnedBytes("private_data", d.getPrivateData(), d.getPrivateDataSize(), out);
}

void iso639Language(const TISO639LanguageDescriptor& d, TreeOut& out)
{
    out.text("ISO_639_language_code", d.getLanguageCode());
}

void logoTransmission(const TLogoTransmissionDescriptor& d, TreeOut& out)
{
    static const char* const kTypes[] = {nullptr, "CDT scheme 1", "CDT scheme 2", "simple logo"};
    const U8 type = d.getLogoTransmissionType();
    out.named("logo_transmission_type", type, 2, nameIn(kTypes, type));
    if (type == TLogoTransmissionDescriptor::TYPE_CDT1 || type == TLogoTransmissionDescriptor::TYPE_CDT2)
        out.hex("logo_id", d.getLogoID(), 3);
    if (type == TLogoTransmissionDescriptor::TYPE_CDT1) {
        out.hex("logo_version", d.getLogoVersion(), 3);
        out.hex("download_data_id", d.getDownloadDataID(), 4);
    }
    if (type == TLogoTransmissionDescriptor::TYPE_SIMPLE) {
        const U8* logo = d.getLogoData();
        out.text("logo_char", logo ? std::string(reinterpret_cast<const char*>(logo), d.getLogoDataLength()) : "");
    }
}

// The copy-control fields the descriptor and each of its component entries carry.
// wireFlags: the flag byte as broadcast, when the entry's bytes are known.
template <class Control>
void copyControl(const Control& control, TreeOut& out, int wireFlags = -1)
{
    static const char* const kRecording[] = {"copying without restriction", "defined by the service provider",
                                             "one generation copy", "copying prohibited"};
    out.named("digital_recording_control_data", control.getDigitalRecordingControlData(), 1,
              nameIn(kRecording, control.getDigitalRecordingControlData()));
    out.flag("maximum_bitrate_flag", control.hasMaximumBitrate() != 0);
    out.hex("copy_control_type", control.getCopyControlType(), 1);
    out.hex("APS_control_data", control.getAPSControlData(), 1);
    // The library reads APS_control_data only when copy_control_type is not 0.
    if (wireFlags >= 0)
        wireIfDiffers(out, "APS_control_data", control.getAPSControlData(), unsigned(wireFlags) & 0x03, 1);
    // In units of 1/4 Mbit/s.
    if (control.hasMaximumBitrate())
        out.number("maximum_bitrate", control.getMaximumBitrate());
}

// The entries the items are read from take no extra argument.
void copyControlItem(const TDigitalCopyControlDescriptorItem& item, TreeOut& out) { copyControl(item, out); }

void digitalCopyControl(const TDigitalCopyControlDescriptor& d, TreeOut& out)
{
    const WireBody wire = wireBody(d);
    copyControl(d, out, wire.has(0) ? int(wire.u8(0)) : -1);
    out.flag("component_control_flag", d.hasComponentControl() != 0);
    // The library reads the entries from their component_tag byte on (it
    // takes the tag for the flags), so each entry shows what it read; the
    // entries as the bytes carry them follow.
    printEntries("components", "component", d.size(), [&d](unsigned i) { return d.get(i); },
                 copyControlItem, out);
    if (!d.hasComponentControl() || !wire.has(0))
        return;
    unsigned at = (wire.u8(0) & 0x20) ? 2 : 1; // flags, then maximum_bitrate when flagged
    if (!wire.has(at))
        return;
    const unsigned end = std::min(wire.size, at + 1 + wire.u8(at));
    out.beginList("components_wire");
    for (at += 1; at + 2 <= end;) {
        const unsigned flags = wire.u8(at + 1);
        out.beginItem("component " + hexText(wire.u8(at), 2));
        out.hex("component_tag", wire.u8(at), 2);
        out.hex("digital_recording_control_data", flags >> 6, 1);
        out.flag("maximum_bitrate_flag", (flags & 0x20) != 0);
        out.hex("copy_control_type", (flags >> 2) & 0x03, 1);
        out.hex("APS_control_data", flags & 0x03, 1);
        at += 2;
        if ((flags & 0x20) && at < end)
            out.number("maximum_bitrate", wire.u8(at++));
        out.end();
    }
    out.end();
}

void carouselCompatibleComposite(const TCarouselCompatibleCompositeDescriptor& d, TreeOut& out)
{
    // The library marks the descriptor's presence only; its sub-descriptors
    // are shown as carried.
    const U32 length = d.getDataLength();
    out.bytes("sub_descriptors", d.getData() ? d.getData() + 2 : nullptr, length > 2 ? length - 2 : 0);
}

} // namespace

std::vector<DescriptorPrinterEntry> streamDescriptorPrinters()
{
    return {
        printerFor<TCAIdentifierDescriptor, caIdentifier>(),
        printerFor<TContentAvailabilityDescriptor, contentAvailability>(),
        printerFor<TCopyrightDescriptor, copyright>(),
        printerFor<TStreamIdentifierDescriptor, streamIdentifier>(),
        printerFor<THierarchicalTransmissionDescriptor, hierarchicalTransmission>(),
        printerFor<TDataComponentDescriptor, dataComponent>(),
        printerFor<TTargetRegionDescriptor, targetRegion>(),
        printerFor<TVideoDecodeControlDescriptor, videoDecodeControl>(),
        printerFor<TConditionalPlaybackDescriptor, conditionalPlayback>(),
        printerFor<TAVCVideoDescriptor, avcVideo>(),
        printerFor<TAVCTimingAndHRDDescriptor, avcTimingAndHrd>(),
        printerFor<TAACDescriptor, aac>(),
        printerFor<TCarouselIdentifierDescriptor, carouselIdentifier>(),
        printerFor<TISO639LanguageDescriptor, iso639Language>(),
        printerFor<TLogoTransmissionDescriptor, logoTransmission>(),
        printerFor<TDigitalCopyControlDescriptor, digitalCopyControl>(),
        printerFor<TCarouselCompatibleCompositeDescriptor, carouselCompatibleComposite>(),
    };
}

} // namespace VuroTools
