// Byte builders for the software download trigger section and the records
// it carries, shared by the tests and the fuzz seeds.
#ifndef VURO_TESTS_DOWNLOAD_BYTES_H
#define VURO_TESTS_DOWNLOAD_BYTES_H

#include <cstdint>
#include <string>

#include "SectionBuilder.h"

namespace VuroTest {

inline std::uint8_t hi(unsigned value) { return static_cast<std::uint8_t>(value >> 8); }
inline std::uint8_t lo(unsigned value) { return static_cast<std::uint8_t>(value); }
inline Bytes be32(std::uint32_t v) { return {lo(v >> 24), lo(v >> 16), hi(v), lo(v)}; }

// Application portal update: one entry, host "ab", application id 256,
// version 1.2, size 4096, patch size 512, the installed-version flags set.
inline Bytes portalUpdate()
{
    return {0x0B, 0x02, 'a', 'b', 0, 0, 0, 0, 0, 0, 0x01, 0x00, 1, 2, 0, 0, 0x10, 0, 0, 0, 0x02, 0, 0x80, 0x80};
}

// subDescriptorType, subDescriptorLength, additionalInformation.
inline Bytes subItem(std::uint8_t type, const Bytes& info)
{
    return concat({{type, lo(info.size())}, info});
}

// descriptorType, descriptorLength, specifierType, specifierData (24),
// model and version as their two raw bytes each, the sub-descriptors.
inline Bytes compatibilityItem(std::uint8_t type, std::uint32_t specifier, Bytes model, Bytes version,
                               const Bytes& subItems, std::uint8_t subCount)
{
    return concat({{type, lo(9 + subItems.size()), 0x01, lo(specifier >> 16), hi(specifier), lo(specifier)},
                   model, version, {subCount}, subItems});
}

// compatibilityDescriptorLength (counting what follows it), descriptorCount, entries.
inline Bytes compatibility(std::uint16_t count, const Bytes& items)
{
    return concat({{hi(items.size() + 2), lo(items.size() + 2), hi(count), lo(count)}, items});
}

inline Bytes module(std::uint16_t id, std::uint32_t size, const Bytes& info)
{
    return concat({{hi(id), lo(id)}, be32(size), {lo(info.size())}, info});
}

struct DownloadContentFields {
    std::uint8_t flags = 0xC0; // reboot, add_on
    std::uint32_t componentSize = 0x00200000;
    std::uint32_t downloadId = 0x0000ABCD;
    std::uint32_t timeOut = 0x0000EA60;
    std::uint32_t leakRate = 0x3FFFFF; // 22 bits
    std::uint8_t componentTag = 0x40;
};

// The whole 0xC9 descriptor; each optional part is placed as given (empty
// parts are left out), private data always has its length byte.
inline Bytes downloadContentDescriptor(const DownloadContentFields& f, const Bytes& compatibilityPart,
                                       const Bytes& modules, std::uint16_t moduleCount, const Bytes& privateData,
                                       const Bytes& textPart)
{
    Bytes body = concat({{f.flags}, be32(f.componentSize), be32(f.downloadId), be32(f.timeOut),
                         {lo(f.leakRate >> 14), lo(f.leakRate >> 6), lo((f.leakRate << 2) | 0x03), f.componentTag},
                         compatibilityPart});
    if (f.flags & 0x10)
        body = concat({body, {hi(moduleCount), lo(moduleCount)}, modules});
    body = concat({body, {lo(privateData.size())}, privateData, textPart});
    return descriptor(0xC9, body);
}

// ISO 639 code, text_length, text.
inline Bytes textPart(const char* language, const std::string& text)
{
    return concat({{lo(language[0]), lo(language[1]), lo(language[2]), lo(text.size())}, Bytes(text.begin(), text.end())});
}

// start_time (MJD, BCD hh mm ss), duration (BCD hh mm ss).
inline Bytes schedule(std::uint16_t mjd, std::uint8_t h, std::uint8_t m, std::uint8_t s, std::uint32_t duration)
{
    return {hi(mjd), lo(mjd), h, m, s, lo(duration >> 16), hi(duration), lo(duration)};
}

// One content: group 1, target_version, new_version, download_level,
// version_indicator, the lengths, schedule_timeshift_information, the
// periods, the descriptors.
inline Bytes downloadContent(std::uint16_t target, std::uint16_t newVersion, std::uint8_t level,
                             std::uint8_t indicator, std::uint8_t timeShift, const Bytes& schedules,
                             const Bytes& descriptors)
{
    const unsigned contentLength = schedules.size() + descriptors.size();
    const unsigned scheduleLength = schedules.size();
    return concat({{lo(0x10 | (target >> 8)), lo(target), lo(newVersion >> 4),
                    lo((newVersion << 4) | (level << 2) | indicator), lo(contentLength >> 4),
                    lo((contentLength << 4) | 0x0F), lo(scheduleLength >> 4), lo((scheduleLength << 4) | timeShift)},
                   schedules, descriptors});
}

// SDTT section: maker and model in table_id_extension, transport stream,
// network and service, num_of_contents, the contents.
inline Bytes sdttSection(std::uint8_t maker, std::uint8_t model, std::uint8_t version, std::uint8_t count,
                         const Bytes& contents)
{
    return SectionBuilder(0xC3)
        .longHeader(static_cast<std::uint16_t>((maker << 8) | model), version)
        .u16(0x0640)
        .u16(0x0641)
        .u16(0xE760)
        .u8(count)
        .bytes(contents)
        .build();
}

} // namespace VuroTest

#endif
