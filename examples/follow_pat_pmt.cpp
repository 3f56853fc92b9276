// Follows a transport stream the way a receiver tunes to it: the PAT on PID 0
// names the PID of each programme's PMT, and each PMT lists the programme's
// elementary streams. Every new version of a table is printed once; a
// section repeating the version already held is skipped.
//
//   follow-pat-pmt [capture.ts]      (the bundled sample stream by default)
#include <cstdio>
#include <map>

#include "ExampleCapture.h"

using namespace Vuro;

int main(int argc, char** argv)
{
    TPATTable* pat = nullptr;
    std::map<U16, TPMTTable*> pmts; // by the PID the PAT announced

    const int status = VuroExamples::readCapture(argc, argv, [&](U16 pid, U8* section, U32 length) {
        U16 error = TISDBTTable::ERROR_OK;
        if (pid == 0x0000) {
            TPATTable* next = TPATTable::parse(section, length, TRUE, TRUE, &error, pat);
            if (!next)
                return; // ERROR_TABLE_NOT_UPDATED: the PAT held stays valid; anything else: refused
            delete pat;
            pat = next;
            std::printf("PAT version %u: transport_stream_id 0x%04X, NIT on PID 0x%04X\n", pat->getVersion(),
                        pat->getTransportStreamID(), pat->getNetworkPid());
            for (U16 number : pat->getProgramNumbers()) {
                const U16 pmtPid = pat->get(number)->getProgramMapPid();
                std::printf("  programme 0x%04X: PMT on PID 0x%04X\n", number, pmtPid);
                pmts.emplace(pmtPid, nullptr); // from now on, sections on that PID are read as PMTs
            }
            return;
        }
        auto held = pmts.find(pid);
        if (held == pmts.end())
            return; // a PID no PAT announced (yet)
        TPMTTable* pmt = TPMTTable::parse(section, length, TRUE, TRUE, &error, held->second);
        if (!pmt)
            return;
        delete held->second;
        held->second = pmt;
        std::printf("PMT of programme 0x%04X version %u on PID 0x%04X: PCR on PID 0x%04X, %u streams\n",
                    pmt->getProgramNumber(), pmt->getVersion(), pid, pmt->getPCRPID(), pmt->size());
        for (U32 i = 0; i < pmt->size(); ++i) {
            const TProgramMap* stream = pmt->getProgramMap(static_cast<U8>(i));
            std::printf("  stream_type 0x%02X on PID 0x%04X", stream->getStreamType(), stream->getElementaryPID());
            // The stream identifier gives the component_tag other tables (the
            // AIT's transport protocol, the EIT's components) refer to.
            if (const TStreamIdentifierDescriptor* id = stream->getStreamIdentifierDescriptor(FALSE, nullptr))
                std::printf(", component_tag 0x%02X", id->getComponentTag());
            std::printf("\n");
        }
    });

    // The caller owns every table it was given.
    delete pat;
    for (auto& held : pmts)
        delete held.second;
    return status;
}
