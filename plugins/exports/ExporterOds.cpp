// The type "Classeur OpenDocument" of the export dialog.
#include "EcrireOds.h"
#include "Exporteur.h"

using namespace Qt::StringLiterals;

class ExporterOds : public Exporteur
{
    Q_OBJECT

public:
    QString ExportFilter() const override
    {
        return FiltreDExport(zelvane::LangMsg(u"plugExportsOds"_s, u"Classeur OpenDocument (*.ods)"_s), u"*.ods"_s);
    }

protected:
    Fin Ecrire(const QString& chemin, Progression& progression) override
    {
        const TitresOds titres{zelvane::LangMsg(u"plugExportsFeuille"_s, u"Catégorie"_s),
                               zelvane::LangMsg(u"plugExportsImage"_s, u"Image"_s)};
        return EcrireOds(TableExportee(Document()), titres, chemin, progression);
    }
};

ZELVANE_PLUGIN("ExporterOds", ExporterOds)

#include "ExporterOds.moc"
