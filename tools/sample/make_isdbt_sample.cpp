// Writes a small ISDB-Tb transport stream byte by byte, without the section
// library: a terrestrial multiplex with one full-seg and one one-seg service
// (PAT, two PMTs, NIT, SDT, TOT, EIT present/following and schedule, SDTT, AIT,
// DSM-CC stream events, a data carousel module and its datacaster carousel
// entry, video, audio and null packets). Sections of the NIT, SDT and EIT PIDs
// are packed back to back, so that sections share packets and span packet
// boundaries as they do on air.
//
//   make-isdbt-sample OUTPUT [--cycles N] [--video-packets K] [--packet-size 188|192|204]
//
// A cycle repeats every table; the SDT gets a new version (a renamed
// service) from the third cycle on. Many cycles with many video packets make
// a large capture for throughput measurements.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

// MPEG-2 CRC-32, bit by bit.
std::uint32_t crc32(const Bytes& data)
{
    std::uint32_t crc = 0xFFFFFFFFu;
    for (std::uint8_t byte : data) {
        crc ^= static_cast<std::uint32_t>(byte) << 24;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80000000u) ? (crc << 1) ^ 0x04C11DB7u : crc << 1;
    }
    return crc;
}

void put16(Bytes& out, unsigned value)
{
    out.push_back(static_cast<std::uint8_t>(value >> 8));
    out.push_back(static_cast<std::uint8_t>(value));
}

void append(Bytes& out, const Bytes& more)
{
    for (std::uint8_t byte : more)
        out.push_back(byte);
}

Bytes text(const char* value) { return Bytes(value, value + std::strlen(value)); }

Bytes descriptor(std::uint8_t tag, const Bytes& body)
{
    Bytes out{tag, static_cast<std::uint8_t>(body.size())};
    append(out, body);
    return out;
}

// 4 reserved bits and a 12-bit length before the loop.
Bytes loop(const Bytes& body)
{
    Bytes out;
    put16(out, 0xF000 | static_cast<unsigned>(body.size()));
    append(out, body);
    return out;
}

// Long-header section: section_length, the header fields, the body, CRC_32.
Bytes longSection(std::uint8_t tableId, unsigned extension, unsigned version, const Bytes& body)
{
    Bytes out{tableId};
    put16(out, 0xB000 | static_cast<unsigned>(5 + body.size() + 4));
    put16(out, extension);
    out.push_back(static_cast<std::uint8_t>(0xC1 | (version << 1))); // current_next_indicator set
    out.push_back(0x00);                                              // section_number
    out.push_back(0x00);                                              // last_section_number
    append(out, body);
    const std::uint32_t crc = crc32(out);
    put16(out, crc >> 16);
    put16(out, crc & 0xFFFF);
    return out;
}

constexpr unsigned kTransportStreamId = 0x0640;
constexpr unsigned kNetworkId = 0x0640;
constexpr unsigned kFullSeg = 0xE580, kOneSeg = 0xE598;
constexpr unsigned kFullSegPmtPid = 0x01F0, kOneSegPmtPid = 0x1FC8;
constexpr unsigned kVideoPid = 0x0111, kAudioPid = 0x0112, kDataPid = 0x0113;
constexpr unsigned kOneSegVideoPid = 0x0181, kOneSegAudioPid = 0x0183;
constexpr unsigned kAitPid = 0x0114;

Bytes pat()
{
    Bytes body;
    put16(body, 0x0000);
    put16(body, 0xE000 | 0x0010); // network PID
    put16(body, kFullSeg);
    put16(body, 0xE000 | kFullSegPmtPid);
    put16(body, kOneSeg);
    put16(body, 0xE000 | kOneSegPmtPid);
    return longSection(0x00, kTransportStreamId, 0, body);
}

Bytes stream(std::uint8_t type, unsigned pid, const Bytes& descriptors)
{
    Bytes out{type};
    put16(out, 0xE000 | pid);
    append(out, loop(descriptors));
    return out;
}

Bytes fullSegPmt()
{
    Bytes body;
    put16(body, 0xE000 | kVideoPid); // PCR_PID
    // digital copy control (copy free) and content availability.
    append(body, loop({0xC1, 0x01, 0x08, 0xDE, 0x01, 0xBF}));
    // H.264 1080i: stream identifier, AVC video (Main profile, level 4.0), video decode control.
    append(body, stream(0x1B, kVideoPid,
                        {0x52, 0x01, 0x00, 0x28, 0x04, 0x4D, 0x40, 0x28, 0x3F, 0xC8, 0x01, 0x4F}));
    // AAC audio in Portuguese.
    append(body, stream(0x0F, kAudioPid, {0x52, 0x01, 0x10, 0x0A, 0x04, 'p', 'o', 'r', 0x00}));
    // Ginga data carousel: stream identifier, data component, carousel identifier.
    append(body, stream(0x0D, kDataPid,
                        {0x52, 0x01, 0x40, 0xFD, 0x03, 0x00, 0xA0, 0x33, 0x13, 0x05, 0x00, 0x00, 0x00, 0x01, 0x00}));
    // Ginga application signalling (AIT sections): stream identifier.
    append(body, stream(0x05, kAitPid, {0x52, 0x01, 0x41}));
    return longSection(0x02, kFullSeg, 0, body);
}

// application_identifier (organisation, application), control code, descriptors.
Bytes application(unsigned organisation, unsigned id, std::uint8_t controlCode, const Bytes& descriptors)
{
    Bytes out;
    put16(out, organisation >> 16);
    put16(out, organisation & 0xFFFF);
    put16(out, id);
    out.push_back(controlCode);
    append(out, loop(descriptors));
    return out;
}

// The full-seg service's AIT (Ginga-NCL): the object carousel on component
// 0x40 as the common transport; an NCL guide started automatically from it,
// and a Ginga-J poll (present, not started) with its own IP transport.
Bytes ait()
{
    Bytes common = descriptor(0x02, {0x00, 0x01, 0x01, 0x00, 0x40}); // object carousel, label 1
    Bytes guide;
    // profile 0x0001 version 1.0.0, service bound, visible, priority 255, label 1
    append(guide, descriptor(0x00, {5, 0x00, 0x01, 1, 0, 0, 0xE0, 0xFF, 0x01}));
    Bytes guideName = text("por");
    guideName.push_back(15);
    append(guideName, text("Guia Interativo"));
    append(guide, descriptor(0x01, guideName));
    Bytes nclLocation{1, '/', 0};
    append(nclLocation, text("main.ncl"));
    append(guide, descriptor(0x07, nclLocation));
    Bytes poll;
    append(poll, descriptor(0x00, {5, 0x00, 0x01, 1, 0, 0, 0x20, 0x80, 0x02}));
    Bytes pollNames = text("por");
    pollNames.push_back(7);
    append(pollNames, text("Enquete"));
    append(pollNames, text("eng"));
    pollNames.push_back(4);
    append(pollNames, text("Poll"));
    append(poll, descriptor(0x01, pollNames));
    Bytes ip{0x00, 0x02, 0x02, 0x00, 0x80, 26}; // IP, label 2, aligned, one URL
    append(ip, text("http://ginga.vuro.tv/poll/"));
    append(poll, descriptor(0x02, ip));
    Bytes javaLocation{8};
    append(javaLocation, text("/enquete"));
    javaLocation.push_back(11);
    append(javaLocation, text("enquete.jar"));
    append(javaLocation, text("br.tv.vuro.Enquete"));
    append(poll, descriptor(0x04, javaLocation));
    Bytes icon{11};
    append(icon, text("icons/poll/"));
    put16(icon, 0x0009); // 32x32 and 64x64 square
    append(poll, descriptor(0x0B, icon));
    append(poll, descriptor(0x0D, {0x01, 0x00, 0x01, 0x00, 0x40})); // DII 1 on association tag 0x0040
    Bytes apps;
    append(apps, application(0x0000000A, 0x0001, 1, guide));
    append(apps, application(0x0000000A, 0x0002, 2, poll));
    Bytes body = loop(common);
    append(body, loop(apps));
    return longSection(0x74, 0x0009, 1, body);
}

Bytes oneSegPmt()
{
    Bytes body;
    put16(body, 0xE000 | kOneSegVideoPid);
    append(body, loop({}));
    // H.264 Baseline level 1.3 and AAC audio (HE-AAC level 2 in an MPEG-4
    // audio descriptor, which the library does not decode).
    append(body, stream(0x1B, kOneSegVideoPid, {0x52, 0x01, 0x81, 0x28, 0x04, 0x42, 0xC0, 0x0D, 0x3F}));
    append(body, stream(0x0F, kOneSegAudioPid, {0x52, 0x01, 0x83, 0x1C, 0x01, 0x2C}));
    return longSection(0x02, kOneSeg, 0, body);
}

Bytes nit()
{
    Bytes network;
    append(network, descriptor(0x40, text("Vuro Rede Bras\xED" "lia"))); // Latin-1, as broadcast in Brazil
    append(network, descriptor(0xFE, {0x03, 0x01}));                   // system management: ISDB-T broadcasting
    Bytes transport;
    // TS information: remote control key 5, name, layer A carries the one-seg
    // service, layer B the full-seg one.
    const Bytes name = text("VURO TV");
    Bytes tsInfo{0x05, static_cast<std::uint8_t>(name.size() << 2 | 2)};
    append(tsInfo, name);
    append(tsInfo, {0x0F, 0x01});
    put16(tsInfo, kOneSeg);
    append(tsInfo, {0xAF, 0x01});
    put16(tsInfo, kFullSeg);
    append(transport, descriptor(0xCD, tsInfo));
    // service list: the full-seg television service and the one-seg data service.
    append(transport, descriptor(0x41, {0xE5, 0x80, 0x01, 0xE5, 0x98, 0xC0}));
    // terrestrial delivery: area code 0x0F3, guard interval 1/16, mode 3, UHF 29 (563.142857 MHz = 3942/7).
    append(transport, descriptor(0xFA, {0x0F, 0x36, 0x0F, 0x66}));
    // partial reception: the one-seg service.
    append(transport, descriptor(0xFB, {0xE5, 0x98}));
    Bytes entry;
    put16(entry, kTransportStreamId);
    put16(entry, kNetworkId);
    append(entry, loop(transport));
    Bytes body = loop(network);
    append(body, loop(entry));
    return longSection(0x40, kNetworkId, 0, body);
}

Bytes service(unsigned id, std::uint8_t type, const char* provider, const char* name)
{
    Bytes body{type, static_cast<std::uint8_t>(std::strlen(provider))};
    append(body, text(provider));
    body.push_back(static_cast<std::uint8_t>(std::strlen(name)));
    append(body, text(name));
    Bytes out;
    put16(out, id);
    out.push_back(0xFF); // EIT schedule and present/following flags set
    const Bytes descriptors = descriptor(0x48, body);
    put16(out, 0x8000 | static_cast<unsigned>(descriptors.size())); // running, not scrambled
    append(out, descriptors);
    return out;
}

Bytes sdt(unsigned version)
{
    Bytes body;
    put16(body, kNetworkId);
    body.push_back(0xFF);
    append(body, service(kFullSeg, 0x01, "Vuro", version ? "Vuro HD Not\xED" "cias" : "Vuro HD"));
    append(body, service(kOneSeg, 0xC0, "Vuro", "Vuro 1seg"));
    return longSection(0x42, kTransportStreamId, version, body);
}

std::uint8_t bcd(unsigned value) { return static_cast<std::uint8_t>((value / 10) << 4 | value % 10); }

Bytes tot(unsigned secondsOfDay)
{
    // 2024-08-02 (MJD 60524) in UTC, Brasília time 3 hours behind.
    Bytes out{0x73, 0x00, 0x00};
    put16(out, 60524);
    out.push_back(bcd(secondsOfDay / 3600 % 24));
    out.push_back(bcd(secondsOfDay / 60 % 60));
    out.push_back(bcd(secondsOfDay % 60));
    Bytes offset = text("BRA");
    offset.push_back(0x03);                         // region 0, polarity 1: behind UTC
    append(offset, {0x03, 0x00});                   // 03:00
    append(offset, {0xF0, 0x00, 0x00, 0x00, 0x00}); // time_of_change: none planned
    append(offset, {0x03, 0x00});                   // next offset, unchanged
    append(out, loop(descriptor(0x58, offset)));
    const unsigned sectionLength = static_cast<unsigned>(out.size() - 3 + 4);
    out[1] = static_cast<std::uint8_t>(0x70 | sectionLength >> 8); // no section syntax, CRC_32 all the same
    out[2] = static_cast<std::uint8_t>(sectionLength);
    const std::uint32_t crc = crc32(out);
    put16(out, crc >> 16);
    put16(out, crc & 0xFFFF);
    return out;
}

void put32(Bytes& out, std::uint32_t value)
{
    put16(out, value >> 16);
    put16(out, value & 0xFFFF);
}

// start_time (MJD, BCD hh mm ss) and duration (BCD hh mm ss) of a period.
Bytes period(unsigned mjd, unsigned hours, unsigned minutes, unsigned durationHours, unsigned durationMinutes)
{
    Bytes out;
    put16(out, mjd);
    append(out, {bcd(hours), bcd(minutes), 0x00, bcd(durationHours), bcd(durationMinutes), 0x00});
    return out;
}

// SDTT on PID 0x0023 announcing a receiver software update for maker 0x5A,
// model 0x01, carried in the full-seg service: one mandatory content from
// version 0x010 on to 0x011, broadcast in two night periods, with a
// download content descriptor (reboot, one compatibility entry, two
// modules, an application portal update as private data and a text).
Bytes sdtt()
{
    Bytes descriptorBody{0xB8}; // reboot, compatibility, module info, text info
    put32(descriptorBody, 0x00200000);  // component_size: 2 MiB
    put32(descriptorBody, 0x00000001);  // download_id
    put32(descriptorBody, 60000);       // time_out_value_DII (ms)
    append(descriptorBody, {0x00, 0x9C, 0x43, 0x40}); // leak_rate 10000 (x 50 bytes/s), component_tag 0x40
    // compatibilityDescriptor(): one hardware entry, IEEE OUI 0x00ABCD, model 0x0104, version 0x0200.
    append(descriptorBody, {0x00, 0x0D, 0x00, 0x01});
    append(descriptorBody, {0x01, 0x09, 0x01, 0x00, 0xAB, 0xCD, 0x01, 0x04, 0x02, 0x00, 0x00});
    // two modules of 1 MiB.
    append(descriptorBody, {0x00, 0x02});
    append(descriptorBody, {0x00, 0x01, 0x00, 0x10, 0x00, 0x00, 0x00});
    append(descriptorBody, {0x00, 0x02, 0x00, 0x10, 0x00, 0x00, 0x00});
    // private data: application portal update for application 4294967297 on
    // host "vuro.tv", version 2.1, 2 MiB, 64 KiB patch, installed 1.0 to 2.0.
    Bytes portal{0x10, 0x07};
    append(portal, text("vuro.tv"));
    append(portal, {0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x02, 0x01});
    put32(portal, 0x00200000);
    put32(portal, 0x00010000);
    append(portal, {0x81, 0x00, 0x82, 0x00});
    descriptorBody.push_back(static_cast<std::uint8_t>(portal.size()));
    append(descriptorBody, portal);
    const Bytes message = text("Atualiza\xE7\xE3o do receptor"); // Latin-1
    append(descriptorBody, text("por"));
    descriptorBody.push_back(static_cast<std::uint8_t>(message.size()));
    append(descriptorBody, message);
    const Bytes descriptors = descriptor(0xC9, descriptorBody);

    // 2024-08-03 and 2024-08-04, 05:00 UTC (02:00 Brasília time), 1 h 30 min each.
    const Bytes periods = [] {
        Bytes out = period(60525, 5, 0, 1, 30);
        append(out, period(60526, 5, 0, 1, 30));
        return out;
    }();
    const unsigned contentLength = static_cast<unsigned>(periods.size() + descriptors.size());
    const unsigned scheduleLength = static_cast<unsigned>(periods.size());
    Bytes content{0x00, 0x10, 0x01, 0x15}; // group 0, target 0x010, new 0x011, level 1 (mandatory), indicator 1
    put16(content, contentLength << 4 | 0x0F);
    put16(content, scheduleLength << 4); // schedule_timeshift_information 0
    append(content, periods);
    append(content, descriptors);

    Bytes body;
    put16(body, kTransportStreamId);
    put16(body, kNetworkId);
    put16(body, kFullSeg);
    body.push_back(0x01); // num_of_contents
    append(body, content);
    return longSection(0xC3, 0x5A01, 0, body);
}

// Stream descriptor sections (table_id 0x3D) on the data carousel's PID,
// one per cycle with a new version: data_event_id 1, event_msg_group_id 1.
// The second carries its stream event under the older tag 26.
Bytes streamEvent(std::uint8_t tag, unsigned eventId, unsigned nptSeconds, const char* name)
{
    Bytes body;
    put16(body, eventId);
    append(body, {0xFF, 0xFF, 0xFF, 0xFE}); // reserved, top bit of eventNPT clear
    const unsigned npt = nptSeconds * 90000;
    put16(body, npt >> 16);
    put16(body, npt & 0xFFFF);
    append(body, text(name));
    return descriptor(tag, body);
}

Bytes streamEventSection(unsigned cycle)
{
    Bytes body;
    switch (cycle % 3) {
    case 0:
        // NPT reference: STC 10 000 000, NPT 0, scale 1/1; then start the document.
        append(body, descriptor(0x01, {0x00, 0xFE, 0x00, 0x98, 0x96, 0x80, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x00, 0x00,
                                       0x00, 0x00, 0x01, 0x00, 0x01}));
        append(body, streamEvent(0x04, 7, 10, "gingaStart"));
        break;
    case 1:
        append(body, streamEvent(26, 54, 20, "addApp"));
        break;
    default:
        // Stream mode transport, NPT from 0 to 60 s, stop the document.
        append(body, descriptor(0x03, {0x02, 0xFF}));
        append(body, descriptor(0x02, {0xFF, 0xFE, 0x00, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0xFE, 0x00, 0x52, 0x65,
                                       0xC0}));
        append(body, streamEvent(0x04, 8, 30, "gingaStop"));
        break;
    }
    return longSection(0x3D, 0x1001, cycle % 32, body);
}

// A DownloadInfoIndication (0x3B) announcing one 2048-byte module, and a
// DownloadDataBlock (0x3C) with the start of that module.
Bytes downloadInfoIndication()
{
    Bytes body{0x11, 0x03, 0x10, 0x02, 0x80, 0x00, 0x00, 0x02, 0xFF, 0x00};
    put16(body, 30);                                              // messageLength
    append(body, {0x00, 0x00, 0x00, 0x01, 0x0F, 0xE2, 0x00, 0x00}); // downloadId, blockSize 4066
    append(body, {0, 0, 0, 0, 0, 0, 0, 0, 0x00, 0x00});            // timers, no compatibility descriptor
    append(body, {0x00, 0x01, 0x00, 0x01, 0x00, 0x00, 0x08, 0x00, 0x01, 0x00}); // module 1, 2048 bytes, v1
    append(body, {0x00, 0x00});                                   // privateDataLength
    return longSection(0x3B, 0x0002, 0, body);
}

Bytes downloadDataBlock()
{
    Bytes body{0x11, 0x03, 0x10, 0x03, 0x00, 0x00, 0x00, 0x01, 0xFF, 0x00};
    put16(body, 6 + 8);
    append(body, {0x00, 0x01, 0x01, 0xFF, 0x00, 0x00}); // module 1 v1, block 0
    append(body, text("<ncl id="));
    return longSection(0x3C, 0x0001, 1, body);
}

// A datacaster carousel table (0x99) with the entry of the data carousel:
// PID, version, carousel_id, component_tag and the application's name.
Bytes datacasterCarouselTable()
{
    Bytes body;
    put16(body, 0xE000 | kDataPid);
    append(body, {0x01, 0x00, 0x00, 0x00, 0x01, 0x40});
    const Bytes name = text("Vuro Interativo");
    body.push_back(static_cast<std::uint8_t>(name.size()));
    append(body, name);
    return longSection(0x99, 0x0001, 1, body);
}

// One event of an event information section: event_id, start_time (MJD of
// 2024-08-02 and BCD UTC time), duration (BCD), running_status with
// free_CA_mode clear, the descriptors.
Bytes event(unsigned id, unsigned startSeconds, unsigned durationSeconds, std::uint8_t runningStatus,
            const Bytes& descriptors)
{
    Bytes out;
    put16(out, id);
    put16(out, 60524);
    out.push_back(bcd(startSeconds / 3600));
    out.push_back(bcd(startSeconds / 60 % 60));
    out.push_back(bcd(startSeconds % 60));
    out.push_back(bcd(durationSeconds / 3600));
    out.push_back(bcd(durationSeconds / 60 % 60));
    out.push_back(bcd(durationSeconds % 60));
    put16(out, static_cast<unsigned>(runningStatus) << 13 | static_cast<unsigned>(descriptors.size()));
    append(out, descriptors);
    return out;
}

// The descriptors of an event: short event (Portuguese, ISO 8859-15 text),
// video component, content (genre), parental rating (age | content << 4)
// and audio component (AAC in simulcast group 0x5F, main, 48 kHz), plus an
// extended event descriptor where extended is set.
Bytes eventDescriptors(const char* name, const char* description, std::uint8_t genre, std::uint8_t rating,
                       bool oneSeg, bool extended = false)
{
    Bytes shortEvent = text("por");
    shortEvent.push_back(static_cast<std::uint8_t>(std::strlen(name)));
    append(shortEvent, text(name));
    shortEvent.push_back(static_cast<std::uint8_t>(std::strlen(description)));
    append(shortEvent, text(description));
    Bytes out = descriptor(0x4D, shortEvent);
    if (extended) {
        // descriptor_number 0 of 0, language, no items, then the text.
        Bytes extendedEvent = {0x00};
        append(extendedEvent, text("por"));
        extendedEvent.push_back(0x00);
        extendedEvent.push_back(6);
        append(extendedEvent, text("Elenco"));
        append(out, descriptor(0x4E, extendedEvent));
    }
    Bytes component = {0xF1, static_cast<std::uint8_t>(oneSeg ? 0xE3 : 0xB3), 0x00};
    append(component, text("por"));
    append(out, descriptor(0x50, component));
    append(out, descriptor(0x54, {genre, 0x00}));
    Bytes rated = text("BRA");
    rated.push_back(rating);
    append(out, descriptor(0x55, rated));
    Bytes audio = {0xF2, 0x03, static_cast<std::uint8_t>(oneSeg ? 0x83 : 0x10), 0x11, 0x5F, 0x5F};
    append(audio, text("por"));
    append(out, descriptor(0xC4, audio));
    return out;
}

// event_information_section of a service: present/following (0x4E, section
// 0 present, section 1 following) or schedule (0x50, section 0).
Bytes eit(std::uint8_t tableId, unsigned serviceId, unsigned sectionNumber, unsigned lastSectionNumber,
          const Bytes& events)
{
    Bytes out{tableId};
    put16(out, 0xF000 | static_cast<unsigned>(11 + events.size() + 4));
    put16(out, serviceId);
    out.push_back(0xC1 | 2 << 1); // version 2, current
    out.push_back(static_cast<std::uint8_t>(sectionNumber));
    out.push_back(static_cast<std::uint8_t>(lastSectionNumber));
    put16(out, kTransportStreamId);
    put16(out, kNetworkId);
    out.push_back(static_cast<std::uint8_t>(lastSectionNumber)); // segment_last_section_number
    out.push_back(tableId);                                       // last_table_id
    append(out, events);
    const std::uint32_t crc = crc32(out);
    put16(out, crc >> 16);
    put16(out, crc & 0xFFFF);
    return out;
}

// The programme of the afternoon of 2024-08-02 (UTC; 3 hours ahead of
// Brasilia): present and following events of both services and their
// schedules.
std::vector<Bytes> eitSections()
{
    const unsigned hour = 3600;
    const Bytes news = event(0x0101, 15 * hour, hour, 4,
                             eventDescriptors("Jornal do Meio-Dia", "As not\xED" "cias da tarde", 0x00, 0x01, false));
    const Bytes football =
        event(0x0102, 16 * hour, 2 * hour, 1,
              eventDescriptors("Futebol: Final", "Ingressos a partir de 20 \xA4", 0x10, 0x02, false));
    const Bytes novel = event(0x0103, 18 * hour + 30 * 60, 45 * 60, 0,
                              eventDescriptors("Novela das Seis", "Cap\xEDtulo 42", 0x30, 0x23, false, true));
    const Bytes oneSegNews = event(0x0201, 15 * hour, hour, 4,
                                   eventDescriptors("Jornal do Meio-Dia", "", 0x00, 0x01, true));
    const Bytes oneSegCartoon = event(0x0202, 16 * hour, 90 * 60, 1,
                                      eventDescriptors("Desenhos", "Para as crian\xE7" "as", 0xA0, 0x01, true));
    Bytes fullSchedule = news;
    append(fullSchedule, football);
    append(fullSchedule, novel);
    Bytes oneSegSchedule = oneSegNews;
    append(oneSegSchedule, oneSegCartoon);
    return {eit(0x4E, kFullSeg, 0, 1, news),          eit(0x4E, kFullSeg, 1, 1, football),
            eit(0x4E, kOneSeg, 0, 1, oneSegNews),     eit(0x4E, kOneSeg, 1, 1, oneSegCartoon),
            eit(0x50, kFullSeg, 0, 0, fullSchedule), eit(0x50, kOneSeg, 0, 0, oneSegSchedule)};
}

class Writer {
public:
    Writer(std::FILE* file, unsigned packetSize) : m_file(file), m_packetSize(packetSize) {}

    // One 188-byte packet, wrapped to the unit size: a 4-byte timestamp
    // before it (192) or 16 bytes of (here zero) parity after it (204).
    void packet(const std::uint8_t* data)
    {
        if (m_packetSize == 192) {
            const std::uint32_t stamp = m_count * 1000u;
            const std::uint8_t prefix[4] = {static_cast<std::uint8_t>(stamp >> 24 & 0x3F),
                                            static_cast<std::uint8_t>(stamp >> 16), static_cast<std::uint8_t>(stamp >> 8),
                                            static_cast<std::uint8_t>(stamp)};
            std::fwrite(prefix, 1, 4, m_file);
        }
        std::fwrite(data, 1, 188, m_file);
        if (m_packetSize == 204) {
            static const std::uint8_t parity[16] = {};
            std::fwrite(parity, 1, 16, m_file);
        }
        ++m_count;
    }

private:
    std::FILE* m_file;
    unsigned m_packetSize;
    std::uint32_t m_count = 0;
};

// The sections of one PID, cut into packets. With packing, a packet that a
// section leaves partly empty waits for the next section of the PID.
class SectionPid {
public:
    SectionPid(unsigned pid, bool packed) : m_pid(pid), m_packed(packed) {}

    void send(Writer& writer, const Bytes& section)
    {
        m_starts.push_back(m_pending.size());
        append(m_pending, section);
        while (m_pending.size() >= capacity())
            emit(writer);
        if (!m_packed)
            flush(writer);
    }

    void flush(Writer& writer)
    {
        while (!m_pending.empty())
            emit(writer);
    }

private:
    // Payload bytes the next packet takes: one fewer when a section starts in it.
    std::size_t capacity() const
    {
        return (!m_starts.empty() && m_starts.front() < 183) ? 183 : 184;
    }

    void emit(Writer& writer)
    {
        std::uint8_t packet[188];
        std::memset(packet, 0xFF, sizeof packet);
        const bool start = !m_starts.empty() && m_starts.front() < 183;
        packet[0] = 0x47;
        packet[1] = static_cast<std::uint8_t>((start ? 0x40 : 0x00) | m_pid >> 8);
        packet[2] = static_cast<std::uint8_t>(m_pid);
        packet[3] = static_cast<std::uint8_t>(0x10 | (m_cc++ & 0x0F));
        std::size_t at = 4;
        if (start)
            packet[at++] = static_cast<std::uint8_t>(m_starts.front());
        // A section start that the packet cannot signal (it has no pointer
        // field) ends the packet's data; stuffing fills the rest.
        std::size_t room = sizeof packet - at;
        if (!start && !m_starts.empty())
            room = std::min(room, m_starts.front());
        const std::size_t take = std::min(m_pending.size(), room);
        std::memcpy(packet + at, m_pending.data(), take);
        m_pending.erase(m_pending.begin(), m_pending.begin() + static_cast<std::ptrdiff_t>(take));
        std::vector<std::size_t> starts;
        for (std::size_t s : m_starts)
            if (s >= take)
                starts.push_back(s - take);
        m_starts = starts;
        writer.packet(packet);
    }

    unsigned m_pid;
    bool m_packed;
    unsigned m_cc = 0;
    Bytes m_pending;
    std::vector<std::size_t> m_starts;
};

// PES packets of an elementary stream, filled with pseudo-random bytes.
class MediaPid {
public:
    MediaPid(unsigned pid, std::uint8_t streamId, bool pcr) : m_pid(pid), m_streamId(streamId), m_pcr(pcr) {}

    void send(Writer& writer, bool unitStart, std::uint32_t& seed)
    {
        std::uint8_t packet[188];
        packet[0] = 0x47;
        packet[1] = static_cast<std::uint8_t>((unitStart ? 0x40 : 0x00) | m_pid >> 8);
        packet[2] = static_cast<std::uint8_t>(m_pid);
        std::size_t at = 4;
        if (unitStart && m_pcr) {
            // adaptation field with random_access_indicator and a PCR
            packet[3] = static_cast<std::uint8_t>(0x30 | (m_cc++ & 0x0F));
            const std::uint64_t base = m_clock;
            m_clock += 3003;
            const std::uint8_t field[8] = {7, 0x50, static_cast<std::uint8_t>(base >> 25), static_cast<std::uint8_t>(base >> 17),
                                           static_cast<std::uint8_t>(base >> 9), static_cast<std::uint8_t>(base >> 1),
                                           static_cast<std::uint8_t>((base & 1) << 7 | 0x7E), 0x00};
            std::memcpy(packet + at, field, sizeof field);
            at += sizeof field;
        } else {
            packet[3] = static_cast<std::uint8_t>(0x10 | (m_cc++ & 0x0F));
        }
        if (unitStart) {
            const std::uint8_t header[9] = {0x00, 0x00, 0x01, m_streamId, 0x00, 0x00, 0x80, 0x00, 0x00};
            std::memcpy(packet + at, header, sizeof header);
            at += sizeof header;
        }
        for (; at < sizeof packet; ++at) {
            seed ^= seed << 13;
            seed ^= seed >> 17;
            seed ^= seed << 5;
            packet[at] = static_cast<std::uint8_t>(seed);
        }
        writer.packet(packet);
    }

private:
    unsigned m_pid;
    std::uint8_t m_streamId;
    bool m_pcr;
    unsigned m_cc = 0;
    std::uint64_t m_clock = 0;
};

void nullPacket(Writer& writer)
{
    std::uint8_t packet[188];
    std::memset(packet, 0xFF, sizeof packet);
    packet[0] = 0x47;
    packet[1] = 0x1F;
    packet[2] = 0xFF;
    packet[3] = 0x10;
    writer.packet(packet);
}

int usage()
{
    std::fprintf(stderr, "usage: make-isdbt-sample OUTPUT [--cycles N] [--video-packets K] [--packet-size 188|192|204]\n");
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    const char* output = nullptr;
    unsigned long cycles = 3, videoPackets = 24, packetSize = 188;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        unsigned long* target = argument == "--cycles" ? &cycles
                                : argument == "--video-packets" ? &videoPackets
                                : argument == "--packet-size" ? &packetSize
                                : nullptr;
        if (target) {
            if (++i == argc)
                return usage();
            char* end = nullptr;
            *target = std::strtoul(argv[i], &end, 10);
            if (!end || *end)
                return usage();
        } else if (!output && argument[0] != '-') {
            output = argv[i];
        } else {
            return usage();
        }
    }
    if (!output || cycles == 0 || (packetSize != 188 && packetSize != 192 && packetSize != 204))
        return usage();
    std::FILE* file = std::fopen(output, "wb");
    if (!file) {
        std::perror(output);
        return 1;
    }
    static char buffer[1 << 20];
    std::setvbuf(file, buffer, _IOFBF, sizeof buffer);

    Writer writer(file, static_cast<unsigned>(packetSize));
    SectionPid patPid(0x0000, false), fullSegPmtPid(kFullSegPmtPid, false), oneSegPmtPid(kOneSegPmtPid, false);
    SectionPid nitPid(0x0010, true), sdtPid(0x0011, true), totPid(0x0014, false), eitPid(0x0012, true);
    SectionPid sdttPid(0x0023, false);
    SectionPid dataPid(kDataPid, false);
    SectionPid aitPid(kAitPid, false);
    MediaPid video(kVideoPid, 0xE0, true), audio(kAudioPid, 0xC0, false);
    MediaPid oneSegVideo(kOneSegVideoPid, 0xE0, false), oneSegAudio(kOneSegAudioPid, 0xC0, false);
    const Bytes patSection = pat(), fullSegPmtSection = fullSegPmt(), oneSegPmtSection = oneSegPmt();
    const Bytes nitSection = nit(), sdtSections[2] = {sdt(0), sdt(1)};
    const Bytes sdttSection = sdtt();
    const Bytes aitSection = ait();
    const std::vector<Bytes> eitSectionList = eitSections();
    std::uint32_t seed = 0x2545F491u;

    for (unsigned long cycle = 0; cycle < cycles; ++cycle) {
        // The stream starts with the one-seg PMT, before the PAT announces its PID.
        if (cycle == 0)
            oneSegPmtPid.send(writer, oneSegPmtSection);
        patPid.send(writer, patSection);
        fullSegPmtPid.send(writer, fullSegPmtSection);
        if (cycle != 0)
            oneSegPmtPid.send(writer, oneSegPmtSection);
        nitPid.send(writer, nitSection);
        sdtPid.send(writer, sdtSections[cycle >= 2 ? 1 : 0]);
        totPid.send(writer, tot(static_cast<unsigned>(15 * 3600 + 30 * 60 + cycle)));
        sdttPid.send(writer, sdttSection);
        dataPid.send(writer, streamEventSection(static_cast<unsigned>(cycle)));
        if (cycle == 0) {
            dataPid.send(writer, downloadInfoIndication());
            dataPid.send(writer, downloadDataBlock());
            dataPid.send(writer, datacasterCarouselTable());
        }
        aitPid.send(writer, aitSection);
        for (const Bytes& section : eitSectionList)
            eitPid.send(writer, section);
        for (unsigned long k = 0; k < videoPackets; ++k) {
            video.send(writer, k % 12 == 0, seed);
            if (k % 6 == 3)
                audio.send(writer, true, seed);
            if (k % 8 == 5)
                oneSegVideo.send(writer, k % 16 == 5, seed);
            if (k % 16 == 7)
                oneSegAudio.send(writer, true, seed);
            if (k % 10 == 9)
                nullPacket(writer);
        }
    }
    nitPid.flush(writer);
    sdtPid.flush(writer);
    eitPid.flush(writer);
    if (std::fclose(file) != 0) {
        std::perror(output);
        return 1;
    }
    return 0;
}
