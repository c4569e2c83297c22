#include "output/TravailEnPdf.h"

#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"

#include <QPageSize>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Another file cannot take the place of a device, and takes the place of a link alone.
bool PeutEtreRemplace(const QString& chemin)
{
    return !EtatDuChemin(chemin) ? !EstLien(chemin) : EstFichier(chemin) && !EstLien(chemin);
}

} // namespace

TravailEnPdf::TravailEnPdf(const QString& chemin)
    : m_chemin(chemin), m_provisoire(PeutEtreRemplace(chemin) ? u"%1.%2.part"_s.arg(chemin).arg(getpid()) : chemin)
{
}

TravailEnPdf::~TravailEnPdf()
{
    m_pages.reset();
    m_fichier.close();
    if (!m_fini && m_provisoire != m_chemin)
        SupprimerParChemin(m_provisoire);
}

std::unique_ptr<TravailEnPdf> TravailEnPdf::Commencer(const QString& chemin, const QString& titre)
{
    if (plateforme().attributs->EstLectureSeule(chemin))
        return nullptr;
    std::unique_ptr<TravailEnPdf> travail(new TravailEnPdf(chemin));
    if (!travail->Ouvrir())
        return nullptr;
    travail->m_pages->setTitle(titre);
    return travail;
}

bool TravailEnPdf::Ouvrir()
{
    if (!OuvrirParChemin(m_fichier, m_provisoire, QIODevice::WriteOnly))
        return false;
    m_pages = std::make_unique<QPdfWriter>(&m_fichier);
    m_pages->setResolution(UnitesParPouce);
    m_pages->setPageSize(QPageSize(QPageSize::A4));
    m_pages->setPageMargins({});
    m_pages->setCreator(u"Zelvane"_s);
    return true;
}

bool TravailEnPdf::Finir()
{
    m_pages.reset();
    const bool entier = m_fichier.flush() && m_fichier.error() == QFileDevice::NoError;
    m_fichier.close();
    m_fini = entier && (m_provisoire == m_chemin || RenommerParChemin(m_provisoire, m_chemin));
    return m_fini;
}
