// Lists the Ginga applications a service signals in its AIT: for each, its
// identifier, control code (what the receiver is told to do with it), name,
// and entry point (the Ginga-J initial class or the Ginga-NCL document) with
// the transport that carries it. Printed once per AIT version.
//
// A receiver takes the AIT from the PIDs its PMT gives with stream_type 0x05
// (see follow_pat_pmt.cpp); to stay short, this program reads every section
// with the AIT's table_id 0x74.
//
//   ginga-applications [capture.ts]  (the bundled sample stream by default)
#include <cstdio>
#include <map>

#include "ExampleCapture.h"

using namespace Vuro;

static const char* controlCodeName(U8 code)
{
    switch (code) {
    case TApplication::CONTROLCODE_AUTOSTART: return "AUTOSTART";
    case TApplication::CONTROLCODE_PRESENT: return "PRESENT";
    case TApplication::CONTROLCODE_DESTROY: return "DESTROY";
    case TApplication::CONTROLCODE_KILL: return "KILL";
    case TApplication::CONTROLCODE_REMOTE: return "REMOTE";
    case TApplication::CONTROLCODE_UNBOUND: return "UNBOUND";
    default: return "other";
    }
}

static void printApplication(const TApplication& app)
{
    const TApplicationIdentifier* id = app.getApplicationIdentifier();
    std::printf("  application %s: organisation_id 0x%08X, application_id 0x%04llX, %s\n", app.getHashID().c_str(),
                id->getOrganizationID(), static_cast<unsigned long long>(id->getApplicationID()),
                controlCodeName(app.getControlCode()));

    // Descriptors an application lacks are taken from the table's common loop.
    if (const TApplicationNameDescriptor* names = app.getApplicationNameDescriptor(TRUE, nullptr))
        for (const std::string& language : names->getLanguageCodes())
            std::printf("    name (%s): %s\n", language.c_str(),
                        VuroExamples::utf8(names->get(language)->getName()).c_str());
    const TGingaApplicationLocationDescriptor* location = app.getGingaApplicationLocationDescriptor(TRUE, nullptr);
    if (location) {
        // The Ginga-J initial class or the Ginga-NCL entry document.
        const std::string classpath = location->getClasspathExtension();
        std::printf("    entry point: %s in %s%s%s\n", location->getInitialClass().c_str(),
                    location->getBaseDirectory().c_str(), classpath.empty() ? "" : ", classpath ", classpath.c_str());
    }
    BOOL inherited = FALSE;
    if (const TTransportProtocolDescriptor* transport = app.getTransportProtocolDescriptor(TRUE, &inherited))
        std::printf("    transport: protocol_id 0x%04X, label 0x%02X%s\n", transport->getProtocolID(),
                    transport->getTransportProtocolLabel(), inherited ? " (common to the table)" : "");
}

int main(int argc, char** argv)
{
    std::map<U16, TAITTable*> aits; // the version held, by PID

    const int status = VuroExamples::readCapture(argc, argv, [&](U16 pid, U8* section, U32 length) {
        if (section[0] != 0x74)
            return;
        TAITTable*& held = aits[pid];
        U16 error = TISDBTTable::ERROR_OK;
        TAITTable* ait = TAITTable::parse(section, length, TRUE, TRUE, &error, held);
        if (!ait) {
            if (error != TISDBTTable::ERROR_TABLE_NOT_UPDATED)
                std::printf("AIT on PID 0x%04X refused: error 0x%04X\n", pid, error);
            return;
        }
        delete held;
        held = ait;
        std::printf("AIT version %u on PID 0x%04X: %u %s applications\n", ait->getVersion(), pid,
                    ait->getApplicationsCount(),
                    ait->getApplicationType() == TApplication::TYPE_NCL    ? "Ginga-NCL"
                    : ait->getApplicationType() == TApplication::TYPE_JAVA ? "Ginga-J"
                                                                           : "other");
        for (const std::string& hashId : ait->getApplicationsIDs())
            printApplication(*ait->getApplication(hashId));
    });

    for (auto& held : aits)
        delete held.second;
    return status;
}
