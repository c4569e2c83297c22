#include "columns/ColonnePrete.h"

#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/QrtClass.h"

bool ChercherColPrete(QrtClass& doc)
{
    doc.IndexColPrete = -1;
    for (int i = 1; i <= doc.ColCount(); ++i) {
        if (doc.MyLV->ColumnHeaders(i).Text() == TitrePrete())
            doc.IndexColPrete = i;
    }
    return doc.IndexColPrete != -1;
}
