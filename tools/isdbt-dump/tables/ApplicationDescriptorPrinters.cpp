// Printers of the descriptors an AIT carries in its common loop and in each
// application's loop. Their tags live in the AIT's own tag space (0x0D is a
// DII location here, not a copyright descriptor), so they are printed by
// the AIT handler through printApplicationDescriptor rather than through the
// shared registry.
#include "../Names.h"
#include "DescriptorPrinterSupport.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

void application(const TApplicationDescriptor& d, TreeOut& out)
{
    static const char* const kVisibility[] = {"not visible", "visible to applications only", "reserved",
                                              "visible to users and applications"};
    out.beginList("application_profiles");
    for (U16 key : d.getProfiles()) {
        const TApplicationDescriptorProfile* profile = d.getProfile(key);
        if (!profile)
            continue;
        beginKeyedItem(out, "profile", key, 4);
        out.hex("application_profile", profile->getApplicationProfile(), 4);
        out.label("version_text", std::to_string(profile->getVersionMajor()) + "." +
                                 std::to_string(profile->getVersionMinor()) + "." +
                                 std::to_string(profile->getVersionMicro()));
        out.end();
    }
    out.end();
    out.flag("service_bound_flag", d.isServiceBound() != 0);
    out.named("visibility", d.getVisibility(), 1, nameIn(kVisibility, d.getVisibility()));
    out.number("application_priority", d.getApplicationPriority());
    out.beginList("transport_protocol_labels");
    for (unsigned i = 0; d.getTransportProtocols() && i < d.getTransportProtocolsCount(); ++i)
        out.hexValue(d.getTransportProtocols()[i], 2);
    out.end();
}

void applicationName(const TApplicationNameDescriptor& d, TreeOut& out)
{
    out.beginList("names");
    for (const std::string& code : d.getLanguageCodes())
        if (const TApplicationNameDescriptorItem* item = d.get(code)) {
            out.beginItem(displayText(code));
            out.text("ISO_639_language_code", item->getLanguageCode());
            out.text("application_name", item->getName());
            out.end();
        }
    out.end();
}

void icon(const TApplicationIconDescriptor& d, TreeOut& out)
{
    out.text("icon_locator", d.getIconLocator());
    out.hex("icon_flags", d.getIconFlags(), 4);
}

void authorisation(const TExternalApplicationAuthorizationDescriptor& d, TreeOut& out)
{
    out.beginList("applications");
    for (const std::string& id : d.getApplicationIdentifierHashIDs())
        if (const TExternalApplicationAuthorizationDescriptorItem* item = d.get(id)) {
            out.beginItem("application " + id);
            out.hex("organisation_id", item->getApplicationIdentifier()->getOrganizationID(), 8);
            out.hex("application_id", item->getApplicationIdentifier()->getApplicationID(), 4);
            out.number("application_priority", item->getPriority());
            out.end();
        }
    out.end();
}

template <class Remote>
void remoteConnection(const Remote& d, TreeOut& out)
{
    out.flag("remote_connection", d.isRemoteConnection() != 0);
    if (d.isRemoteConnection())
        printServiceLocation(d, out);
}

void transportProtocol(const TTransportProtocolDescriptor& d, TreeOut& out)
{
    static const char* const kProtocols[] = {nullptr, "object carousel", "IP", "interactive channel",
                                             "data carousel", "profile C"};
    out.named("protocol_id", d.getProtocolID(), 4, nameIn(kProtocols, d.getProtocolID()));
    out.hex("transport_protocol_label", d.getTransportProtocolLabel(), 2);
    if (const auto* carousel = dynamic_cast<const TTransportProtocolCarouselDescriptor*>(&d)) {
        remoteConnection(*carousel, out);
        out.hex("component_tag", carousel->getComponentTag(), 2);
    } else if (const auto* ip = dynamic_cast<const TTransportProtocolDescriptorIP*>(&d)) {
        remoteConnection(*ip, out);
        out.flag("alignment_indicator", ip->isAligned() != 0);
        out.beginList("URLs");
        for (U32 i = 0; i < ip->getURLCount() && i < 256; ++i)
            out.value(displayText(ip->getURL(static_cast<U8>(i))));
        out.end();
    } else if (const auto* ic = dynamic_cast<const TTransportProtocolDescriptorIC*>(&d)) {
        out.beginList("URLs");
        for (U32 i = 0; i < ic->getURLCount(); ++i) {
            out.beginItem("URL " + std::to_string(i));
            out.text("URL_base", ic->getURLBase(i));
            out.beginList("URL_extensions");
            for (U32 e = 0; e < ic->getURLExtensionCount(i); ++e)
                out.value(displayText(ic->getURLExtension(i, e)));
            out.end();
            out.end();
        }
        out.end();
    }
}

void ipSignalling(const TIPSignalingDescriptor& d, TreeOut& out) { out.hex("platform_id", d.getPlatformID(), 6); }

void prefetch(const TPrefetchDescriptor& d, TreeOut& out)
{
    out.hex("transport_protocol_label", d.getTransportProtocolLabel(), 2);
    printEntries("prefetches", "prefetch", d.size(), [&d](unsigned i) { return d.get(i); },
                 [](const TPrefetchDescriptorItem& item, TreeOut& o) {
                     o.text("label", item.getLabel());
                     o.number("prefetch_priority", item.getPriority());
                 },
                 out);
}

void diiLocation(const TDIILocationDescriptor& d, TreeOut& out)
{
    out.hex("transport_protocol_label", d.getTransportProtocolLabel(), 2);
    printEntries("DII_locations", "DII", d.size(), [&d](unsigned i) { return d.get(i); },
                 [](const TDIILocationDescriptorItem& item, TreeOut& o) {
                     o.hex("DII_identification", item.getDIIIdentification(), 4);
                     o.hex("association_tag", item.getAssociationTag(), 4);
                 },
                 out);
}

void gingaApplication(const TGingaApplicationDescriptor& d, TreeOut& out)
{
    out.beginList("parameters");
    for (U32 i = 0; i < d.size(); ++i)
        out.value(displayText(d.get(i)));
    out.end();
}

void gingaLocation(const TGingaApplicationLocationDescriptor& d, TreeOut& out)
{
    out.text("base_directory", d.getBaseDirectory());
    out.text("classpath_extension", d.getClasspathExtension());
    // Ginga-J names the class to start; Ginga-NCL the document to open.
    const bool java = d.getDescriptorTag() == TGingaJavaApplicationLocationDescriptor::DESCRIPTOR_TAG;
    out.text(java ? "initial_class" : "NCL_entry", d.getInitialClass());
}

template <class D, void (*Print)(const D&, TreeOut&)>
bool as(const TISDBTDescriptor& descriptor, TreeOut& out)
{
    return printFieldsAs<D, Print>(descriptor, out);
}

bool printFields(const TISDBTDescriptor& descriptor, TreeOut& out)
{
    switch (descriptor.getDescriptorTag()) {
    case 0x00: return as<TApplicationDescriptor, application>(descriptor, out);
    case 0x01: return as<TApplicationNameDescriptor, applicationName>(descriptor, out);
    case 0x02: return as<TTransportProtocolDescriptor, transportProtocol>(descriptor, out);
    case 0x03:
    case 0x06: return as<TGingaApplicationDescriptor, gingaApplication>(descriptor, out);
    case 0x04:
    case 0x07: return as<TGingaApplicationLocationDescriptor, gingaLocation>(descriptor, out);
    case 0x05: return as<TExternalApplicationAuthorizationDescriptor, authorisation>(descriptor, out);
    case 0x0B: return as<TApplicationIconDescriptor, icon>(descriptor, out);
    case 0x0C: return as<TPrefetchDescriptor, prefetch>(descriptor, out);
    case 0x0D: return as<TDIILocationDescriptor, diiLocation>(descriptor, out);
    case 0x11: return as<TIPSignalingDescriptor, ipSignalling>(descriptor, out);
    default: return false;
    }
}

} // namespace

void printApplicationDescriptor(const TISDBTDescriptor& descriptor, TreeOut& out)
{
    printDescriptor(descriptor, out, applicationDescriptorTagName, printFields);
}

} // namespace VuroTools
