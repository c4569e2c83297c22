#include "output/EcrireExport.h"

#include "catalogue/texte/PuitsAppareil.h"
#include "catalogue/texte/QrtClass.h"
#include "output/ImagesDePage.h"
#include "platform/NomsSysteme.h"

using stockage::Codage;
using stockage::EntreeStockee;

std::vector<int> SujetExport::Cochees(int premiere, int derniere) const
{
    std::vector<int> colonnes;
    for (int colonne = premiere; colonne <= derniere; ++colonne) {
        if (Cochee(colonne))
            colonnes.push_back(colonne);
    }
    return colonnes;
}

namespace {

class PuitsSansFond : public Puits
{
public:
    bool Recevoir(const char*, size_t) override { return true; }
};

std::unique_ptr<Ecrivain> EcrivainDe(GenreExport genre, const SujetExport& sujet, ImagesDePage& images)
{
    switch (genre) {
    case GenreExport::PageAvecImages:
        return EcrivainPageAvecImages(sujet, images);
    case GenreExport::PageSansImages:
        return EcrivainPageSansImages(sujet);
    case GenreExport::TexteEncadre:
        return EcrivainTexteEncadre(sujet);
    case GenreExport::PointsVirgules:
        return EcrivainPointsVirgules(sujet);
    case GenreExport::Tabulations:
        break;
    }
    return EcrivainTabulations(sujet);
}

/// Goes over the entries, once for each thing that is to be done with all of them.
class Passages
{
public:
    Passages(const SujetExport& sujet, Avancement& avancement, int nombre)
        : m_sujet(sujet), m_avancement(avancement), m_total(sujet.Entrees() * nombre)
    {
    }

    /// Calls `faire` with each entry's position and storage until that is false.
    template<class Faire> void Parcourir(Faire faire)
    {
        for (int i = 1; i <= m_sujet.Entrees(); ++i) {
            m_avancement.Avancer(++m_fait, m_total);
            if (!faire(i, m_sujet.table.StockageDe(i)))
                return;
        }
    }
    bool EstIncluse(int position) const
    {
        return !m_sujet.choix.selectionUniquement || m_sujet.table.EstSelectionnee(position);
    }

private:
    const SujetExport& m_sujet;
    Avancement& m_avancement;
    int m_total;
    int m_fait = 0;
};

/// Whether anything that the text would hold is not in the code page. Slices of a file in the code page cannot be.
bool DepasseLaPage(const SujetExport& sujet, Ecrivain& ecrivain, Passages& passages)
{
    PuitsSansFond puits;
    PlumeExport sonde(puits, JeuExport::HuitBits);
    ecrivain.EcrireTete(sonde);
    const bool tranchesSures = sujet.table.CodageSource() == Codage::Cp1252;
    passages.Parcourir([&](int position, const EntreeStockee& entree) {
        if (!(tranchesSures && entree.EstTranche()) && passages.EstIncluse(position))
            ecrivain.EcrireEntree(sonde, position, entree);
        return !sonde.AManque();
    });
    return sonde.AManque();
}

} // namespace

bool CreerExport(QFile& fichier, const QString& chemin)
{
    return OuvrirParChemin(fichier, chemin, QIODevice::WriteOnly | QIODevice::Unbuffered);
}

IssueExport EcrireExport(const QrtClass& doc, GenreExport genre, const ChoixExport& choix, QIODevice& sortie,
                         const QString& chemin, Avancement& avancement)
{
    const SujetExport sujet{*doc.MyLV, NomLisible(doc.filename()), choix};
    ImagesDePage images(doc.TmpFolder, chemin.first(chemin.lastIndexOf(u'/') + 1));
    const std::unique_ptr<Ecrivain> ecrivain = EcrivainDe(genre, sujet, images);
    const bool page = genre == GenreExport::PageAvecImages || genre == GenreExport::PageSansImages;

    Passages passages(sujet, avancement, 1 + (page ? 0 : 1) + (ecrivain->DoitMesurer() ? 1 : 0));
    if (ecrivain->DoitMesurer()) {
        passages.Parcourir([&](int, const EntreeStockee& entree) {
            ecrivain->Mesurer(entree);
            return true;
        });
    }
    const bool enUtf8 = !page && DepasseLaPage(sujet, *ecrivain, passages);

    PuitsAppareil puits(sortie);
    PlumeExport plume(puits, page ? JeuExport::Page : enUtf8 ? JeuExport::Utf8 : JeuExport::HuitBits);
    if (enUtf8)
        plume.Ascii("\xEF\xBB\xBF");
    ecrivain->EcrireTete(plume);
    passages.Parcourir([&](int position, const EntreeStockee& entree) {
        if (passages.EstIncluse(position))
            ecrivain->EcrireEntree(plume, position, entree);
        return true;
    });
    ecrivain->EcrirePied(plume);
    return {plume.Vider(), images.Perdues()};
}
