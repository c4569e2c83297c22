#include "entries/mClipBoard.h"

void CopierSelection(MyLV& /*table*/, const QString& /*tmpFolder*/) {}

bool CollerEntrees(MyLV& /*table*/, const QString& /*tmpFolder*/, int16_t /*copies*/)
{
    return false;
}
