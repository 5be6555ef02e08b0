#include "ado/RowBlock.h"

#include "ado/Values.h"
#include "basic/Error.h"

namespace kvx::ado {

basic::Variant RowBlock::Value(std::size_t column, std::size_t row) const
{
    if (column >= Columns() || row >= Rows()) basic::Raise(basic::kErrSubscript);
    return ToVariant(store_->Columns()[column], store_->CellAt(column, first_ + row));
}

} // namespace kvx::ado
