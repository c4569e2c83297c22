#include "catalogue/texte/TexteQrt.h"

#include "base/Const_Vrac.h"
#include "base/Nombres.h"
#include "base/SurUneLigne.h"
#include "platform/PageDeCode.h"

#include <algorithm>
#include <limits>
#include <utility>

using stockage::Cellule;
using stockage::Codage;

/// Writes in the encoding asked for, and counts what the code page lacks.
class PlumeQrt : public PlumeOctets
{
public:
    PlumeQrt(Puits& puits, Codage codage) : PlumeOctets(puits), m_codage(codage) {}

    void Texte(const QString& texte)
    {
        const QByteArray octets = m_codage == Codage::Utf8 ? texte.toUtf8() : PageDeCode::VersOctets(texte);
        CompterManques(texte);
        Octets(octets.constData(), static_cast<size_t>(octets.size()));
    }

    void Champ(const Cellule& cellule)
    {
        if (cellule.taille == 0)
            return;
        if (CouperaitLaLigne(cellule)) {
            Texte(SansSeparateurs(cellule.Texte()));
            return;
        }
        if (cellule.codage == m_codage || cellule.EstAscii())
            Octets(cellule.debut, cellule.taille);
        else
            Texte(cellule.Texte());
    }

    Codage codage() const { return m_codage; }

    /// What is pasted or dropped may hold a bar. Read again, the fields behind it would shift, and the image be lost:
    /// in the file another sign stands for it. What was read from a file has none, and goes out as it came.
    static bool CouperaitLaLigne(const Cellule& cellule)
    {
        return std::any_of(cellule.debut, cellule.debut + cellule.taille, [](char c) { return c == '|' || c == '\n'; });
    }

    std::optional<qint64> Finir() { return Vider() ? std::optional<qint64>(m_manques) : std::nullopt; }

private:
    void CompterManques(const QString& texte)
    {
        for (const QChar c : texte)
            m_manques += !c.isLowSurrogate() && PageDeCode::OctetDe(c.unicode()) < 0;
    }

    Codage m_codage;
    qint64 m_manques = 0;
};

namespace {

QString TextesDeColonne(const ColumnHeader& colonne, int rang, const std::optional<SaisieEnCours>& saisie)
{
    return saisie ? SurUneLigne(saisie->textes.value(rang - 1)) : colonne.Tag();
}

void EcrireDebut(PlumeQrt& plume, const QrtClass& doc, const char* version)
{
    const MyLV& table = *doc.MyLV;
    plume.Ascii("[FileInfo]\r\nType=QRT FILE\r\nVersion=");
    plume.Ascii(version);
    plume.Ascii("\r\n\r\n[ListView]\r\nGridLines=");
    plume.Texte(BoolVersTexte(table.GridLines()));
    plume.Ascii("\r\nSorted=1\r\nSortKey=");
    plume.Nombre(table.SortKey());
    plume.Ascii("\r\nSortOrder=");
    plume.Nombre(table.SortOrder());
    plume.Ascii("\r\nView=3\r\n\r\n[ColumHeaders]\r\nCount=");
    plume.Nombre(doc.ColCount());
    plume.FinDeLigne();
}

void EcrireColonne(PlumeQrt& plume, const ColumnHeader& colonne, int numero, const std::optional<SaisieEnCours>& saisie)
{
    plume.Ascii("Colum");
    plume.Nombre(numero);
    plume.Ascii("=");
    plume.Texte(colonne.Text());
    plume.Ascii("|");
    plume.Texte(SimpleVersTexte(colonne.Width()));
    plume.Ascii("|");
    plume.Texte(TextesDeColonne(colonne, numero, saisie));
    plume.FinDeLigne();
}

/// The lines between the columns and the entries.
void EcrireMilieu(PlumeQrt& plume, const QrtClass& doc, int nombre)
{
    plume.Ascii("Dependant=");
    plume.Nombre(doc.dependantcol);
    plume.Ascii("\r\n\r\n[ListItems]\r\nCount=");
    plume.Nombre(nombre);
    plume.FinDeLigne();
}

void EcrireChamps(PlumeQrt& plume, const stockage::EntreeStockee& vue, int colonnes, EntreesEcrites entrees)
{
    for (int i = 0; i < colonnes; ++i) {
        if (i > 0)
            plume.Octets("|", 1);
        plume.Champ(vue.Champ(i));
    }
    if (entrees == EntreesEcrites::Toutes) {
        plume.Octets("|", 1);
        plume.Champ(vue.Image());
    }
}

/// The fields of an entry as they are being typed. `vue`: of the entry that there is, null for a new one.
void EcrireSaisie(PlumeQrt& plume, const SaisieEnCours& saisie, const stockage::EntreeStockee* vue, int colonnes)
{
    const auto reste = [&](const QString& texte) {
        return vue && saisie.cible == SaisieEnCours::Cible::Selection && texte.isEmpty();
    };
    for (int i = 0; i < colonnes; ++i) {
        const QString valeur = saisie.valeurs.value(i);
        if (reste(valeur))
            plume.Champ(vue->Champ(i));
        else
            plume.Texte(SansSeparateurs(valeur));
        plume.Octets("|", 1);
    }
    if (reste(saisie.image))
        plume.Champ(vue->Image());
    else
        plume.Texte(SansSeparateurs(saisie.image));
}

bool EstAjout(const std::optional<SaisieEnCours>& saisie)
{
    return saisie && saisie->cible == SaisieEnCours::Cible::Ajout;
}

} // namespace

RedacteurQrt::RedacteurQrt(const QrtClass& doc, const char* version, EntreesEcrites entrees, Codage codage,
                           Puits& puits, std::optional<SaisieEnCours> saisie)
    : m_doc(doc), m_entrees(entrees), m_saisie(std::move(saisie)), m_plume(std::make_unique<PlumeQrt>(puits, codage))
{
    EcrireDebut(*m_plume, doc, version);
}

RedacteurQrt::~RedacteurQrt() = default;

/// False while there are more columns than that.
bool RedacteurQrt::EcrireColonnes(int lignes)
{
    const ColumnHeaders& colonnes = m_doc.MyLV->ColumnHeaders;
    const int derniere = static_cast<int>(std::min<qint64>(colonnes.Count(), qint64(m_colonne) + lignes - 1));
    for (; m_colonne <= derniere && m_plume->Bon(); ++m_colonne)
        EcrireColonne(*m_plume, colonnes(m_colonne), m_colonne, m_saisie);
    if (m_colonne <= colonnes.Count())
        return false;
    const int toutes = m_doc.ItemsCount() + (EstAjout(m_saisie) ? 1 : 0);
    if (!std::exchange(m_colonnesEcrites, true))
        EcrireMilieu(*m_plume, m_doc, m_entrees == EntreesEcrites::Toutes ? toutes : m_doc.SelItemsCount());
    return true;
}

bool RedacteurQrt::Avancer(int lignes)
{
    PlumeQrt& plume = *m_plume;
    if (!EcrireColonnes(lignes))
        return plume.Bon();
    const MyLV& table = *m_doc.MyLV;
    const bool toutes = m_entrees == EntreesEcrites::Toutes;
    const int derniere = static_cast<int>(std::min<qint64>(m_doc.ItemsCount(), qint64(m_suivante) + lignes - 1));

    // An entry that was not edited goes out as it came in.
    const bool memeForme =
        toutes && table.CodageSource() == plume.codage() && table.ColonnesSource() == m_doc.ColCount();
    for (; m_suivante <= derniere && plume.Bon(); ++m_suivante) {
        if (!toutes && !table.EstSelectionnee(m_suivante))
            continue;
        CommencerEntree();
        const stockage::EntreeStockee vue = table.StockageDe(m_suivante);
        if (m_saisie && m_saisie->Touche(m_suivante, table.EstSelectionnee(m_suivante)))
            EcrireSaisie(plume, *m_saisie, &vue, m_doc.ColCount());
        else if (memeForme && vue.EstReguliere())
            plume.Octets(vue.Tranche().data(), static_cast<size_t>(vue.Tranche().size()));
        else
            EcrireChamps(plume, vue, m_doc.ColCount(), m_entrees);
        plume.FinDeLigne();
    }
    return plume.Bon() && m_suivante <= m_doc.ItemsCount();
}

void RedacteurQrt::CommencerEntree()
{
    m_plume->Octets("It", 2);
    m_plume->Nombre(++m_numero);
    m_plume->Octets("=", 1);
}

std::optional<qint64> RedacteurQrt::Finir()
{
    if (EstAjout(m_saisie)) {
        CommencerEntree();
        EcrireSaisie(*m_plume, *m_saisie, nullptr, m_doc.ColCount());
        m_plume->FinDeLigne();
    }
    return m_plume->Finir();
}

std::optional<qint64> EcrireTexteQrt(const QrtClass& doc, const char* version, EntreesEcrites entrees, Codage codage,
                                     Puits& puits)
{
    RedacteurQrt redacteur(doc, version, entrees, codage, puits);
    while (redacteur.Avancer(std::numeric_limits<int>::max())) {
    }
    return redacteur.Finir();
}

bool TexteDepasseLaPage(const QrtClass& doc)
{
    struct Neant : Puits
    {
        bool Recevoir(const char*, size_t) override { return true; }
    } neant;
    return EcrireTexteQrt(doc, "2", EntreesEcrites::Toutes, Codage::Cp1252, neant) > 0;
}
