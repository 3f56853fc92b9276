// Application information table: the Ginga applications of a service, with
// the common descriptors that apply to all of them, then per application its
// identifier, control code and own descriptors.
#include "../Names.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

template <class Owner>
void printApplicationDescriptorsOf(const Owner& owner, const char* key, TreeOut& out)
{
    out.beginList(key);
    for (U8 tag : owner.getDescriptorTags())
        if (const TISDBTDescriptor* descriptor = owner.getDescriptor(tag))
            printApplicationDescriptor(*descriptor, out);
    out.end();
}

// The common descriptors an application takes from its table because it has
// none of that kind itself (what a receiver uses for it).
void printInherited(const TApplication& application, TreeOut& out)
{
    out.beginList("inherited_common_descriptors");
    const auto inherited = [&](auto getter) {
        BOOL taken = FALSE;
        const TISDBTDescriptor* descriptor = (application.*getter)(TRUE, &taken);
        if (taken && descriptor) {
            const U8 tag = descriptor->getDescriptorTag();
            const char* name = applicationDescriptorTagName(tag);
            out.value(hexText(tag, 2) + (name ? std::string(" ") + name : std::string()));
        }
    };
    inherited(&TApplication::getApplicationDescriptor);
    inherited(&TApplication::getApplicationNameDescriptor);
    inherited(&TApplication::getApplicationIconDescriptor);
    inherited(&TApplication::getExternalApplicationAuthorizationDescriptor);
    inherited(&TApplication::getTransportProtocolDescriptor);
    inherited(&TApplication::getIPSignalingDescriptor);
    inherited(&TApplication::getPrefetchDescriptor);
    inherited(&TApplication::getDIILocationDescriptor);
    inherited(&TApplication::getGingaApplicationDescriptor);
    inherited(&TApplication::getGingaApplicationLocationDescriptor);
    out.end();
}

class AitHandler : public TableHandlerOf<TAITTable> {
public:
    AitHandler() : TableHandlerOf("AIT", ROLE_AIT, 0x74) {}

protected:
    TAITTable* parseTable(U8* section, U32 length, TAITTable* previous, U16* errorCode) const override
    {
        // Flag order of this table: parseDescriptors, then checkCRC32.
        return TAITTable::parse(section, length, TRUE, TRUE, errorCode, previous);
    }

    void printTable(const TAITTable& ait, TreeOut& out) const override
    {
        out.named("application_type", ait.getApplicationType(), 4, applicationTypeName(ait.getApplicationType()));
        out.number("version_number", ait.getVersion());
        out.flag("current_next_indicator", ait.getCurrentIndicator() != 0);
        out.number("section_number", ait.getSectionNumber());
        out.number("last_section_number", ait.getLastSectionNumber());
        printApplicationDescriptorsOf(ait, "common_descriptors", out);
        out.beginList("applications");
        for (const std::string& id : ait.getApplicationsIDs()) {
            const TApplication* application = ait.getApplication(id);
            if (!application)
                continue;
            out.beginItem("application " + id);
            if (const TApplicationIdentifier* identifier = application->getApplicationIdentifier()) {
                out.hex("organisation_id", identifier->getOrganizationID(), 8);
                out.hex("application_id", identifier->getApplicationID(), 4);
            }
            out.label("hash_id_text", application->getHashID());
            out.named("application_control_code", application->getControlCode(), 2,
                      applicationControlCodeName(application->getControlCode()));
            printApplicationDescriptorsOf(*application, "descriptors", out);
            printInherited(*application, out);
            out.end();
        }
        out.end();
    }
};

} // namespace

std::unique_ptr<TableHandler> makeAitHandler() { return std::make_unique<AitHandler>(); }

} // namespace VuroTools
