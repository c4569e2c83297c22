#include "platform/ImprimantesBureau.h"

#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

class TravailSurImprimante : public TravailDImpression
{
public:
    TravailSurImprimante(const QPrinterInfo& imprimante, const QString& titre)
        : m_imprimante(imprimante, QPrinter::HighResolution)
    {
        m_imprimante.setResolution(UnitesParPouce);
        m_imprimante.setPageSize(QPageSize(QPageSize::A4));
        m_imprimante.setPageOrientation(QPageLayout::Portrait);
        m_imprimante.setFullPage(true);
        m_imprimante.setDocName(titre);
    }

    QPaintDevice& Papier() override { return m_imprimante; }
    bool NouvellePage() override { return m_imprimante.newPage(); }
    bool Finir() override { return m_imprimante.printerState() != QPrinter::Error; }

private:
    QPrinter m_imprimante;
};

} // namespace

QStringList ImprimantesBureau::Noms() const
{
    return QPrinterInfo::availablePrinterNames();
}

QString ImprimantesBureau::ParDefaut() const
{
    return QPrinterInfo::defaultPrinterName();
}

std::unique_ptr<TravailDImpression> ImprimantesBureau::Commencer(const QString& imprimante, const QString& titre)
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(imprimante);
    if (info.isNull())
        return nullptr;
    return std::make_unique<TravailSurImprimante>(info, titre);
}
