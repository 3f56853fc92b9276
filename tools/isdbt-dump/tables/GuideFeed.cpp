// Hands the tables a handler parses to the programme guide, when the dump
// gathers one (the SDT for service names, the TOT for local time).
#include "../Guide.h"
#include "TableHandlers.h"

using namespace Vuro;

namespace VuroTools {

namespace {

class GuideFeed : public TableHandler {
public:
    explicit GuideFeed(std::unique_ptr<TableHandler> inner) : m_inner(std::move(inner)) {}

    const char* name() const override { return m_inner->name(); }
    PidRole role() const override { return m_inner->role(); }
    bool accepts(std::uint8_t tableId) const override { return m_inner->accepts(tableId); }
    TISDBTTable* parse(U8* section, U32 length, TISDBTTable* previous, U16* errorCode) const override
    {
        TISDBTTable* table = m_inner->parse(section, length, previous, errorCode);
        if (table && Guide::active())
            Guide::active()->note(*table);
        return table;
    }
    void print(const TISDBTTable& table, TreeOut& out) const override { m_inner->print(table, out); }
    void printIn(const TISDBTTable& table, const PrintContext& context, TreeOut& out) const override
    {
        m_inner->printIn(table, context, out);
    }
    void announce(const TISDBTTable& table, PidAnnouncements& router) const override
    {
        m_inner->announce(table, router);
    }

private:
    std::unique_ptr<TableHandler> m_inner;
};

} // namespace

std::unique_ptr<TableHandler> feedingGuide(std::unique_ptr<TableHandler> handler)
{
    return std::make_unique<GuideFeed>(std::move(handler));
}

} // namespace VuroTools
