#ifndef VURO_TMOSAIC_DESCRIPTOR_H
#define VURO_TMOSAIC_DESCRIPTOR_H

#include "../TISDBTItemList.h"
#include "TISDBTDescriptor.h"
#include "TMosaicDescriptorCell.h"

namespace Vuro {

/// mosaic_descriptor (0x51): mosaic_entry_point (1),
/// number_of_horizontal_elementary_cells (3), reserved (1),
/// number_of_vertical_elementary_cells (3), then the logical cells.
class TMosaicDescriptor : public TISDBTDescriptor {
    friend class TISDBTDescriptor;

public:
    static constexpr VURO_U8 DESCRIPTOR_TAG = 0x51;
    static constexpr VURO_U32 MINIMUM_DESCRIPTOR_LENGTH = 1;

    /// Values of the cell-count fields (count - 1).
    static constexpr VURO_U8 NUMBER_OF_CELLS_1 = 0;
    static constexpr VURO_U8 NUMBER_OF_CELLS_2 = 1;
    static constexpr VURO_U8 NUMBER_OF_CELLS_3 = 2;
    static constexpr VURO_U8 NUMBER_OF_CELLS_4 = 3;
    static constexpr VURO_U8 NUMBER_OF_CELLS_5 = 4;
    static constexpr VURO_U8 NUMBER_OF_CELLS_6 = 5;
    static constexpr VURO_U8 NUMBER_OF_CELLS_7 = 6;
    static constexpr VURO_U8 NUMBER_OF_CELLS_8 = 7;

    TMosaicDescriptor(U8* data, U32 length);
    virtual ~TMosaicDescriptor();

    /// *parsedLength receives 1 + the lengths of the cells taken.
    static TMosaicDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode);
    static TMosaicDescriptor* parse(U8* sectionData, U32 dataLength, U32* parsedLength, U16* errorCode,
                                    const U8* limit);

    /// Not decoded: stays FALSE whatever the first bit carries.
    BOOL isMosaicEntryPoint() const { return m_bMosaicEntryPoint; }
    U8 getNumberOfHorizontalCells() const { return m_iNumberOfHorizontalCells; }
    U8 getNumberOfVerticalCells() const { return m_iNumberOfVerticalCells; }
    U32 size() const { return m_pItems.size(); }
    TMosaicDescriptorCell* getCell(U32 index) const { return m_pItems.get(index); }
    /// Appends; the descriptor takes ownership.
    void addCell(TMosaicDescriptorCell* cell) { m_pItems.add(cell); }
    BOOL removeCell(U32 index) { return m_pItems.remove(index); }

private:
    BOOL parseBody(U32 dataLength, const U8* limit, U32& parsedLength, U16* errorCode);

    VURO_BOOL m_bMosaicEntryPoint;
    VURO_U8 m_iNumberOfHorizontalCells;
    VURO_U8 m_iNumberOfVerticalCells;
    TISDBTItemList<TMosaicDescriptorCell> m_pItems;
};

} // namespace Vuro

#endif
