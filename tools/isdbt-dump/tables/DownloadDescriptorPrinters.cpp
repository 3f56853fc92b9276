// Printers of the software download descriptors (SDTT contents): the
// download content descriptor with its compatibility entries, modules,
// private data decoded as an application portal update, and text.
#include "DescriptorPrinterSupport.h"

using namespace Vuro;

namespace VuroTools {

namespace {

const char* compatibilityTypeName(U8 type)
{
    switch (type) {
    case 0x01: return "hardware";
    case 0x02: return "software";
    default: return nullptr;
    }
}

void compatibilityEntry(const TCompatibilityDescriptorItem& item, TreeOut& out)
{
    out.named("descriptor_type", item.getDescriptorType(), 2, compatibilityTypeName(item.getDescriptorType()));
    out.named("specifier_type", item.getSpecifierType(), 2, item.getSpecifierType() == 0x01 ? "IEEE OUI" : nullptr);
    out.hex("specifier_data", item.getSpecifierData(), 6);
    out.hex("model", item.getModel(), 4);
    out.hex("version", item.getVersion(), 4);
    printEntries(
        "sub_descriptors", "sub-descriptor", item.getCompatibilityDescriptorSubItemSize(),
        [&item](unsigned i) { return item.getCompatibilityDescriptorSubItem(static_cast<U8>(i)); },
        [](const TCompatibilityDescriptorSubItem& sub, TreeOut& o) {
            o.hex("sub_descriptor_type", sub.getSubDescriptorType(), 2);
            printOwnedBytes("additional_information", sub.getAdditionalInformation(),
                            sub.getAdditionalInformationLength(), o);
        },
        out);
}

void portalUpdate(TAppPortalUpdate& update, TreeOut& out)
{
    out.beginObject("app_portal_update");
    std::unique_ptr<std::list<TAppPortalUpdate::AppID*>> ids(update.getIds());
    out.beginList("applications");
    unsigned index = 0;
    for (const TAppPortalUpdate::AppID* id : *ids) {
        out.beginItem("app " + std::to_string(index++));
        // The record keeps the 64-bit id as its decimal digits.
        out.label("application_id_text", id->id);
        out.text("host", id->host);
        out.end();
    }
    out.end();
    out.number("app_major_version", update.getMajorVersion());
    out.number("app_minor_version", update.getMinorVersion());
    out.number("app_size", update.getSize());
    out.number("app_patch_size", update.getPatchSize());
    out.number("app_min_installed_major_version", update.getMinIntalledMajorVersion());
    out.number("app_min_installed_minor_version", update.getMinInstalledMinorVersion());
    out.number("app_max_installed_major_version", update.getMaxIntalledMajorVersion());
    out.number("app_max_installed_minor_version", update.getMaxInstalledMinorVersion());
    out.end();
}

void downloadContent(const TDownloadContentDescriptor& d, TreeOut& out)
{
    out.flag("reboot", d.getReboot() != 0);
    out.flag("add_on", d.getAddOn() != 0);
    out.flag("compatibility_flag", d.getCompatibilityFlag() != 0);
    out.flag("module_info_flag", d.getModuleInfoFlag() != 0);
    out.flag("text_info_flag", d.getTextInfoFlag() != 0);
    out.number("component_size", d.getComponentSize());
    out.hex("download_id", d.getDownloadID(), 8);
    out.number("time_out_value_DII", d.getTimeOutValueDII());
    out.number("leak_rate", d.getLeakRate());
    out.hex("component_tag", d.getComponentTag(), 2);
    if (const TCompatibilityDescriptor* compatibility = d.getCompatibilityDescriptor())
        printEntries(
            "compatibility_descriptor", "entry", compatibility->getCompatibilityDescriptorItemSize(),
            [compatibility](unsigned i) { return compatibility->getCompatibilityDescriptorItem(static_cast<U8>(i)); },
            compatibilityEntry, out);
    if (d.getModuleInfoFlag())
        printEntries(
            "modules", "module", d.getDownloadContentDescriptorItemSize(),
            [&d](unsigned i) { return d.getDownloadContentDescriptorItem(static_cast<U8>(i)); },
            [](const TDownloadContentDescriptorItem& module, TreeOut& o) {
                o.hex("module_id", module.getModuleID(), 4);
                o.number("module_size", module.getModuleSize());
                printOwnedBytes("module_info", module.getModuleInfo(), module.getModuleInfoLength(), o);
            },
            out);
    printOwnedBytes("private_data", d.getPrivateData(), d.getPrivateDataLength(), out);
    if (TAppPortalUpdate* update = d.getAppPortalUpdateDescriptor())
        portalUpdate(*update, out);
    if (d.getTextInfoFlag()) {
        out.text("ISO_639_language_code", d.getLanguageCode());
        out.text("text", d.getText());
    }
}

} // namespace

std::vector<DescriptorPrinterEntry> downloadDescriptorPrinters()
{
    return {
        printerFor<TDownloadContentDescriptor, downloadContent>(),
    };
}

} // namespace VuroTools
