#include "catalogue/texte/LectureQrt.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/Nombres.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/ImagesDuDossier.h"
#include "catalogue/texte/TexteExact.h"
#include "extensions/langue/modLang.h"
#include "platform/PageDeCode.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <utility>

using stockage::Codage;

namespace {

// A damaged file may announce any number of entries; so many copies of its last line are made, beyond one for each
// line that it has.
constexpr qint64 CopiesAuPlus = 1000000;

// The lines of a text. Reading past the end leaves the last line standing, as the reader's steps expect.
class LecteurDeLignes
{
public:
    LecteurDeLignes(const char* debut, size_t taille) : m_debut(debut), m_suite(debut), m_fin(debut + taille) {}

    bool ALaFin() const { return m_suite == m_fin; }

    /// False at the end: the line stays as it was.
    bool Lire()
    {
        if (ALaFin())
            return false;
        const void* saut = std::memchr(m_suite, '\n', static_cast<size_t>(m_fin - m_suite));
        const char* finLigne = saut ? static_cast<const char*>(saut) : m_fin;
        const char* suivante = saut ? finLigne + 1 : m_fin;
        if (saut && finLigne > m_suite && finLigne[-1] == '\r')
            --finLigne;
        m_ligne = QByteArrayView(m_suite, finLigne);
        m_suite = suivante;
        return true;
    }

    QByteArrayView Ligne() const { return m_ligne; }
    QByteArrayView Valeur() const { return ValeurEnOctets(m_ligne); }

    qint64 LignesEnTout() const { return Compter(m_debut); }
    qint64 LignesQuiRestent() const { return Compter(m_suite); }

private:
    qint64 Compter(const char* depuis) const
    {
        const qint64 sauts = std::count(depuis, m_fin, '\n');
        return sauts + (m_fin > depuis && m_fin[-1] != '\n');
    }

    const char* m_debut;
    const char* m_suite;
    const char* m_fin;
    QByteArrayView m_ligne;
};

/// One load: the steps follow the order of the lines.
class Chargement
{
public:
    Chargement(QrtClass& doc, stockage::Source source, Etendue etendue)
        : m_doc(doc), m_table(*doc.MyLV), m_source(std::move(source)),
          m_lecteur(m_source.octets.get(), m_source.taille), m_etendue(etendue)
    {
    }

    /// False when the text is no catalogue, or announces more than it can hold.
    bool Executer()
    {
        m_lecteur.Lire();
        m_lecteur.Lire();
        if (m_lecteur.Ligne() != "Type=QRT FILE")
            return false;
        const int cleDeTri = LireVue();
        if (!LireColonnes())
            return false;
        AjouterColonnePrete();
        m_table.SetSortKey(cleDeTri);
        PoserMarqueDeTri();
        m_lecteur.Lire();
        if (const auto dependante = VersEntier32(Texte(m_lecteur.Valeur())))
            m_doc.dependantcol = *dependante;
        while (!m_lecteur.ALaFin()) {
            m_lecteur.Lire();
            if (m_lecteur.Ligne() == "[ListItems]")
                break;
        }
        return LireEntrees();
    }

private:
    QString Texte(QByteArrayView octets) const
    {
        return m_source.codage == Codage::Utf8 ? PageDeCode::DeUtf8(octets) : PageDeCode::VersTexte(octets);
    }

    void Sauter(int lignes)
    {
        for (int i = 0; i < lignes; ++i)
            m_lecteur.Lire();
    }

    /// The lines from GridLines to View; returns the sort column, which is set once there are columns.
    int LireVue()
    {
        Sauter(3);
        m_lecteur.Lire();
        m_table.SetGridLines(TexteVersBool(Texte(m_lecteur.Valeur())));
        m_lecteur.Lire();
        m_table.SetSorted(TexteVersBool(Texte(m_lecteur.Valeur())));
        m_lecteur.Lire();
        // A value that is no number leaves a variable that starts at 0.
        const int cleDeTri = VersEntier16(Texte(m_lecteur.Valeur())).value_or(0);
        m_lecteur.Lire();
        AppliquerNombre(&MyLV::SetSortOrder);
        m_lecteur.Lire();
        AppliquerNombre(&MyLV::SetView);
        m_table.SetView(3);
        return cleDeTri;
    }

    // The leading digits of the line's value; a value that the table refuses changes nothing.
    void AppliquerNombre(bool (MyLV::*ecrire)(int))
    {
        const double nombre = Val(Texte(m_lecteur.Valeur()));
        if (nombre >= 0 && nombre <= 3)
            (m_table.*ecrire)(static_cast<int>(nombre));
    }

    /// True when `copies` more copies of the last line are within the bound.
    bool Permis(qint64 copies)
    {
        m_copies += copies;
        return m_copies == 0 || m_copies <= m_lecteur.LignesEnTout() + CopiesAuPlus;
    }

    bool LireColonnes()
    {
        Sauter(2);
        m_lecteur.Lire();
        m_colonnes = VersEntier32(Texte(m_lecteur.Valeur())).value_or(0);
        m_doc.ClearLV();
        m_doc.IndexColPrete = -1;
        QString titre, largeur, marque;
        m_colonnes = std::max(m_colonnes, 0);
        bool finVue = false;
        for (int i = 1; i <= m_colonnes; ++i) {
            const bool lue = m_lecteur.Lire();
            if (!lue && !std::exchange(finVue, true) && !Permis(qint64(m_colonnes) - i + 1))
                return false;
            if (lue || i == 1)
                Separer(titre, largeur, marque);
            AjouterColonne(i, titre, largeur, marque);
        }
        return true;
    }

    void Separer(QString& titre, QString& largeur, QString& marque) const
    {
        const QString valeur = Texte(m_lecteur.Valeur());
        const qsizetype barre1 = valeur.indexOf(u'|');
        const qsizetype barre2 = barre1 < 0 ? -1 : valeur.indexOf(u'|', barre1 + 1);
        titre = valeur.left(barre1 < 0 ? valeur.size() : barre1);
        largeur = barre1 < 0 ? QString() : valeur.mid(barre1 + 1, barre2 < 0 ? -1 : barre2 - barre1 - 1);
        marque = barre2 < 0 ? QString() : valeur.mid(barre2 + 1);
    }

    void AjouterColonne(int numero, const QString& titre, const QString& largeur, const QString& marque)
    {
        if (titre == TitrePrete())
            m_doc.IndexColPrete = numero;
        ColumnHeader& colonne = m_table.ColumnHeaders.Add(0, titre);
        if (largeur.isEmpty()) {
            colonne.SetWidth(1000);
            return;
        }
        if (const std::optional<float> nombre = VersSimple(largeur))
            colonne.SetWidth(*nombre);
        colonne.SetTag(marque);
    }

    void AjouterColonnePrete()
    {
        if (m_doc.IndexColPrete != -1)
            return;
        m_table.ColumnHeaders.Add(0, TitrePrete()).SetWidth(600);
        m_doc.IndexColPrete = m_colonnes + 1;
        m_doc.IlFautSauver = true;
    }

    void PoserMarqueDeTri()
    {
        // In descending order the marker stands one column to the left of the sorted one. It is meant.
        const bool montant = m_table.SortOrder() == 0;
        const int colonne = montant ? m_table.SortKey() + 1 : m_table.SortKey();
        if (m_table.ColumnHeaders.Existe(colonne))
            m_table.ColumnHeaders(colonne).SetIcon(montant ? QStringLiteral("down") : QStringLiteral("up"));
    }

    bool LireEntrees()
    {
        m_lecteur.Lire();
        const qint64 nombre = std::max(0, VersEntier32(Texte(m_lecteur.Valeur())).value_or(0));
        const qint64 lues = std::min(nombre, m_lecteur.LignesQuiRestent());
        if (!Permis(nombre - lues))
            return false;
        if (m_etendue == Etendue::SansEntrees)
            return true;

        stockage::Lignes lignes;
        lignes.debuts.reserve(static_cast<size_t>(nombre));
        lignes.longueurs.reserve(static_cast<size_t>(nombre));
        lignes.drapeaux.reserve(static_cast<size_t>(nombre));
        ImagesDuDossier images(m_doc.TmpFolder, m_source.codage);
        for (qint64 i = 0; i < std::max<qint64>(lues, nombre > 0); ++i) {
            m_lecteur.Lire();
            const QByteArrayView valeur = m_lecteur.Valeur();
            lignes.debuts.push_back(static_cast<uint64_t>(valeur.data() - m_source.octets.get()));
            lignes.longueurs.push_back(static_cast<uint32_t>(valeur.size()));
            lignes.drapeaux.push_back(DrapeauxDeTranche(valeur, m_colonnes, images));
        }
        if (!lignes.debuts.empty()) {
            lignes.debuts.resize(static_cast<size_t>(nombre), lignes.debuts.back());
            lignes.longueurs.resize(static_cast<size_t>(nombre), lignes.longueurs.back());
            lignes.drapeaux.resize(static_cast<size_t>(nombre), lignes.drapeaux.back());
        }
        m_source.colonnes = m_colonnes;
        m_table.Remplir(std::move(m_source), std::move(lignes));
        return true;
    }

    QrtClass& m_doc;
    MyLV& m_table;
    stockage::Source m_source;
    LecteurDeLignes m_lecteur;
    Etendue m_etendue;
    int m_colonnes = 0;
    qint64 m_copies = 0;
};

/// Nothing when the text is too large to address.
std::optional<stockage::Source> SourceExacte(QByteArrayView utf8)
{
    if (utf8.size() > TailleDeTexteAuPlus)
        return std::nullopt;
    stockage::Source source;
    source.taille = static_cast<size_t>(utf8.size());
    source.octets = std::make_unique_for_overwrite<char[]>(source.taille);
    std::copy(utf8.begin(), utf8.end(), source.octets.get());
    source.codage = Codage::Utf8;
    return source;
}

/// The text of the folder's catalogue: exact where it is there and not stale, else the 8-bit text. Nothing when it is
/// too large to address or breaks off, or when the exact one cannot be read; an 8-bit file that cannot be opened is the
/// empty text.
std::optional<stockage::Source> LireSource(const QString& dossier)
{
    stockage::Source source;
    QFile fichier(dossier + QStringLiteral("Zelvane.qrt"));
    if (!fichier.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return source;
    if (fichier.size() > TailleDeTexteAuPlus)
        return std::nullopt;
    source.octets = std::make_unique_for_overwrite<char[]>(static_cast<size_t>(fichier.size()));
    source.taille = static_cast<size_t>(std::max<qint64>(0, fichier.read(source.octets.get(), fichier.size())));
    if (static_cast<qint64>(source.taille) != fichier.size())
        return std::nullopt;

    const QByteArrayView huitBits(source.octets.get(), static_cast<qsizetype>(source.taille));
    const TexteExact::Contenu contenu = TexteExact::Lire(dossier, huitBits, QByteArrayView());
    if (contenu.illisible)
        return std::nullopt;
    if (contenu.catalogue)
        if (std::optional<stockage::Source> exacte = SourceExacte(*contenu.catalogue))
            return exacte;
    return source;
}

bool Charger(QrtClass& doc, std::optional<stockage::Source> source, Etendue etendue)
{
    return source && Chargement(doc, std::move(*source), etendue).Executer();
}

} // namespace

QString TitrePrete()
{
    return QStringLiteral("Prêté");
}

QByteArrayView ValeurEnOctets(QByteArrayView ligne)
{
    const void* egal = ligne.isEmpty() ? nullptr : std::memchr(ligne.data(), '=', static_cast<size_t>(ligne.size()));
    return egal ? ligne.sliced(static_cast<const char*>(egal) - ligne.data() + 1) : ligne;
}

QString ValeurLigne(const QString& ligne)
{
    const qsizetype egal = ligne.indexOf(u'=');
    return egal < 0 ? ligne : ligne.mid(egal + 1);
}

bool ChargerDossier(QrtClass& doc, Etendue etendue)
{
    return Charger(doc, LireSource(doc.TmpFolder), etendue);
}

bool ChargerTexteExact(QrtClass& doc, QByteArrayView utf8)
{
    return Charger(doc, SourceExacte(utf8), Etendue::Tout);
}

void ChargerFichier(QrtClass& doc, Etendue etendue)
{
    if (ChargerDossier(doc, etendue))
        return;
    AfficherMsg(LangMsg(QStringLiteral("msg50"),
                        QStringLiteral("Erreur lors de l'ouverture : le fichier n'est pas un fichier qrt valide")),
                MsgOk, QString());
    doc.ClearLV();
}
