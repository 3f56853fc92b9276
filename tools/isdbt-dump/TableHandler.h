// One unit per table class: how the dump parses a section of that table,
// prints the result and learns PIDs from it. A table joins the dump by
// adding its handler to makeTableHandlers() (TableHandlers.cpp).
#ifndef VURO_TOOLS_TABLE_HANDLER_H
#define VURO_TOOLS_TABLE_HANDLER_H

#include <cstdint>
#include <memory>
#include <vector>

#include <VuroISDBT.h>

#include "TreeOut.h"

namespace VuroTools {

// What a PID carries, as a receiver learns it: fixed PIDs, the PAT, the PMTs.
enum PidRole : std::uint16_t {
    ROLE_PAT = 1 << 0,
    ROLE_PMT = 1 << 1,
    ROLE_NIT = 1 << 2,
    ROLE_SDT = 1 << 3,
    ROLE_EIT = 1 << 4,
    ROLE_TOT = 1 << 5,
    ROLE_SDTT = 1 << 6,
    ROLE_AIT = 1 << 7,
    ROLE_DSMCC = 1 << 8,
    ROLE_ANY = 0xFFFF
};

// The router's side: a table that announces where other tables are.
class PidAnnouncements {
public:
    virtual ~PidAnnouncements() = default;
    virtual void announce(std::uint16_t pid, PidRole role) = 0;
};

// What a printer may want to know besides the table: where the section
// came from and what the network's times are in.
struct PrintContext {
    std::uint16_t pid = 0xFFFF; // 0xFFFF for a section read from a file of sections
    const char* timeZone = "UTC"; // "JST" on Japanese networks, "UTC" otherwise (or as --tz says)
    const char* timeZoneSource = "no network seen"; // what decided it
    bool timeZoneDecided = false; // by a network seen or by --tz (not the default)
};

class TableHandler {
public:
    virtual ~TableHandler() = default;

    virtual const char* name() const = 0;
    virtual PidRole role() const = 0;
    virtual bool accepts(std::uint8_t tableId) const = 0;

    // The table's static parse with its own flag order; previous is this
    // handler's last table on the PID (or null).
    virtual Vuro::TISDBTTable* parse(Vuro::U8* section, Vuro::U32 length, Vuro::TISDBTTable* previous,
                                     Vuro::U16* errorCode) const = 0;
    virtual void print(const Vuro::TISDBTTable& table, TreeOut& out) const = 0;
    // The printer with the dump's context; by default the one without.
    virtual void printIn(const Vuro::TISDBTTable& table, const PrintContext&, TreeOut& out) const
    {
        print(table, out);
    }
    virtual void announce(const Vuro::TISDBTTable&, PidAnnouncements&) const {}
};

// The typed side of a handler: T is the table class, named and routed by
// the handler's role and the table_id it takes (or a range of them, as the
// EIT's 0x4E to 0x6F).
template <class T>
class TableHandlerOf : public TableHandler {
public:
    TableHandlerOf(const char* name, PidRole role, std::uint8_t tableId)
        : m_name(name), m_role(role), m_tableId(tableId), m_lastTableId(tableId)
    {
    }
    TableHandlerOf(const char* name, PidRole role, std::uint8_t firstTableId, std::uint8_t lastTableId)
        : m_name(name), m_role(role), m_tableId(firstTableId), m_lastTableId(lastTableId)
    {
    }
    const char* name() const final { return m_name; }
    PidRole role() const final { return m_role; }
    bool accepts(std::uint8_t tableId) const final { return tableId >= m_tableId && tableId <= m_lastTableId; }
    Vuro::TISDBTTable* parse(Vuro::U8* section, Vuro::U32 length, Vuro::TISDBTTable* previous,
                             Vuro::U16* errorCode) const final
    {
        return parseTable(section, length, static_cast<T*>(previous), errorCode);
    }
    void print(const Vuro::TISDBTTable& table, TreeOut& out) const final
    {
        printTable(static_cast<const T&>(table), out);
    }
    void printIn(const Vuro::TISDBTTable& table, const PrintContext& context, TreeOut& out) const final
    {
        printTableIn(static_cast<const T&>(table), context, out);
    }
    void announce(const Vuro::TISDBTTable& table, PidAnnouncements& router) const final
    {
        announceFrom(static_cast<const T&>(table), router);
    }

protected:
    virtual T* parseTable(Vuro::U8* section, Vuro::U32 length, T* previous, Vuro::U16* errorCode) const = 0;
    virtual void printTable(const T& table, TreeOut& out) const = 0;
    // A printer that needs the context overrides this one.
    virtual void printTableIn(const T& table, const PrintContext&, TreeOut& out) const { printTable(table, out); }
    virtual void announceFrom(const T&, PidAnnouncements&) const {}

private:
    const char* m_name;
    PidRole m_role;
    std::uint8_t m_tableId;
    std::uint8_t m_lastTableId;
};

// The long section header every versioned table shares; extensionName
// names the table_id_extension ("transport_stream_id", ...).
void printVersionedHeader(const Vuro::TISDBTVersionedTable& table, const char* extensionName, TreeOut& out);

// Descriptors the printers do not know field by field: tag and raw bytes.
void printRawDescriptor(const Vuro::TISDBTDescriptor& descriptor, TreeOut& out);

// Every table the dump decodes.
std::vector<std::unique_ptr<TableHandler>> makeTableHandlers();

} // namespace VuroTools

#endif
