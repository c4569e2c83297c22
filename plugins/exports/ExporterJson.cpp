// The type "JSON" of the export dialog.
#include "EcrireJson.h"
#include "Exporteur.h"

using namespace Qt::StringLiterals;

class ExporterJson : public Exporteur
{
    Q_OBJECT

public:
    QString ExportFilter() const override
    {
        return FiltreDExport(zelvane::LangMsg(u"plugExportsJson"_s, u"JSON (*.json)"_s), u"*.json"_s);
    }

protected:
    Fin Ecrire(const QString& chemin, Progression& progression) override
    {
        return EcrireJson(TableExportee(Document()), chemin, progression);
    }
};

ZELVANE_PLUGIN("ExporterJson", ExporterJson)

#include "ExporterJson.moc"
