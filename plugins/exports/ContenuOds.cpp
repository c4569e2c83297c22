#include "ContenuOds.h"

#include "TexteUtf8.h"

#include <algorithm>
#include <set>

namespace {

constexpr QByteArrayView DebutDeLigne("<table:table-row>");
constexpr QByteArrayView FinDeLigne("</table:table-row>\n");
constexpr QByteArrayView FinDeFeuille("</table:table>\n");
constexpr QByteArrayView FinDuContenu("</office:spreadsheet></office:body></office:document-content>\n");
constexpr qsizetype LongueurDeNom = 31; // what all spreadsheets know of a sheet's name
constexpr int PartDeLExamen = 1;        // of the four that the whole takes
constexpr int Parts = 4;

QByteArray StyleDeLargeur(int largeur)
{
    // Millimetres of a character of the usual size, and of the margins of a cell.
    const int dixiemes = 20 * largeur + 50;
    return "<style:style style:name=\"co" + QByteArray::number(largeur) +
           "\" style:family=\"table-column\"><style:table-column-properties style:column-width=\"" +
           QByteArray::number(dixiemes / 10) + '.' + QByteArray::number(dixiemes % 10) + "mm\"/></style:style>\n";
}

QByteArray StyleDeNombre(int decimales)
{
    const QByteArray nombre = QByteArray::number(decimales);
    return "<number:number-style style:name=\"N" + nombre + "\"><number:number number:decimal-places=\"" + nombre +
           "\" number:min-integer-digits=\"1\"/></number:number-style>\n<style:style style:name=\"ce" + nombre +
           "\" style:family=\"table-cell\" style:parent-style-name=\"Default\" style:data-style-name=\"N" + nombre +
           "\"/>\n";
}

/// A text that the user writes over another one stays a text, with its leading zeros.
constexpr QByteArrayView
    StylesDeTexte("<number:text-style style:name=\"NT\"><number:text-content/></number:text-style>\n"
                  "<style:style style:name=\"ceT\" style:family=\"table-cell\" style:parent-style-name=\"Default\" "
                  "style:data-style-name=\"NT\"/>\n"
                  "<style:style style:name=\"titre\" style:family=\"table-cell\" style:parent-style-name=\"Default\" "
                  "style:data-style-name=\"NT\"><style:text-properties fo:font-weight=\"bold\"/></style:style>\n");

QString NomDeFeuille(QString nom, const QString& defaut)
{
    nom.removeIf([](QChar c) { return c < u' ' || QStringView(u"[]*?:/\\'").contains(c); });
    nom = nom.trimmed();
    return nom.isEmpty() ? defaut : nom;
}

/// The beginning of a text, with no half of a pair at its end.
QString Debut(const QString& texte, qsizetype taille)
{
    QString debut = texte.first(std::min(taille, texte.size()));
    if (!debut.isEmpty() && debut.back().isHighSurrogate())
        debut.chop(1);
    return debut;
}

} // namespace

ContenuOds::ContenuOds(const TableExportee& contenu, TitresOds titres, Progression& progression, LimitesOds limites)
    : m_contenu(contenu), m_titres(std::move(titres)), m_progression(progression), m_limites(limites)
{
    m_colonnes.reserve(static_cast<size_t>(contenu.Colonnes()) + 1);
    for (const QString& titre : contenu.Titres())
        m_colonnes.emplace_back(titre);
    m_colonnes.emplace_back(m_titres.image);
}

// ---- the look ahead

Fin ContenuOds::Examiner()
{
    const int colonnes = m_contenu.Colonnes();
    if (colonnes > m_limites.colonnes)
        return Fin::TropDeColonnes;
    for (int ligne = 1; ligne <= m_contenu.Lignes();) {
        const auto paquet = m_contenu.Lire(ligne);
        if (!paquet)
            return Fin::TableChangee;
        for (qsizetype i = 0; i < paquet->cellules.size(); ++i)
            m_colonnes[static_cast<size_t>(i % colonnes)].Voir(paquet->cellules.at(i));
        for (const QString& image : paquet->images)
            m_colonnes.back().Voir(image);
        ligne += paquet->lignes;
        if (!m_progression.Avancer(int64_t{PartDeLExamen} * (ligne - 1), int64_t{Parts} * m_contenu.Lignes()))
            return Fin::Abandonnee;
    }
    return ColonnesEcrites() > m_limites.colonnes ? Fin::TropDeColonnes : Fin::Faite;
}

qsizetype ContenuOds::ColonnesEcrites() const
{
    return m_contenu.Colonnes() + (m_colonnes.back().EstVide() ? 0 : 1);
}

QStringList ContenuOds::Feuilles() const
{
    const int parFeuille = LignesParFeuille();
    const int nombre = std::max(1, (m_contenu.Lignes() + parFeuille - 1) / parFeuille);
    const QString nom = NomDeFeuille(m_contenu.Nom(), m_titres.feuille);
    QStringList feuilles(Debut(nom, LongueurDeNom));
    feuilles.reserve(nombre);
    for (int i = 2; i <= nombre; ++i) {
        const QString suite = QStringLiteral(" (%1)").arg(i);
        feuilles.append(Debut(nom, LongueurDeNom - suite.size()) + suite);
    }
    return feuilles;
}

int64_t ContenuOds::Taille() const
{
    int64_t taille = Entete().size() + FinDuContenu.size();
    for (const QString& feuille : Feuilles())
        taille += DebutDeFeuille(feuille).size() + FinDeFeuille.size();
    taille += int64_t{m_contenu.Lignes()} * (DebutDeLigne.size() + FinDeLigne.size());
    for (qsizetype i = 0; i < ColonnesEcrites(); ++i)
        taille += Colonne(i).Octets();
    return taille;
}

// ---- the text

QByteArray ContenuOds::Entete() const
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document-content"
                     " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
                     " xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\""
                     " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\""
                     " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
                     " xmlns:number=\"urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0\""
                     " xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\""
                     " office:version=\"1.2\">\n<office:automatic-styles>\n";
    std::set<int> largeurs;
    std::set<int> decimales;
    for (qsizetype i = 0; i < ColonnesEcrites(); ++i) {
        const ColonneOds& colonne = Colonne(i);
        largeurs.insert(colonne.Largeur());
        if (colonne.EnNombres())
            decimales.insert(*colonne.EnNombres());
    }
    for (const int largeur : largeurs)
        xml += StyleDeLargeur(largeur);
    for (const int nombre : decimales)
        xml += StyleDeNombre(nombre);
    xml += StylesDeTexte;
    xml += "</office:automatic-styles>\n<office:body><office:spreadsheet>\n";
    return xml;
}

/// The titles are repeated on each page that is printed.
QByteArray ContenuOds::DebutDeFeuille(const QString& nom) const
{
    QByteArray xml = "<table:table table:name=\"";
    AjouterXml(xml, nom);
    xml += "\">\n";
    const qsizetype colonnes = ColonnesEcrites();
    for (qsizetype i = 0; i < colonnes; ++i) {
        const auto nombres = Colonne(i).EnNombres();
        xml += "<table:table-column table:style-name=\"co" + QByteArray::number(Colonne(i).Largeur()) +
               "\" table:default-cell-style-name=\"ce" + (nombres ? QByteArray::number(*nombres) : QByteArray("T")) +
               "\"/>\n";
    }
    if (colonnes == 0) // a sheet has one at least
        xml += "<table:table-column/>\n";
    xml += "<table:table-header-rows><table:table-row>";
    for (qsizetype i = 0; i < colonnes; ++i) {
        xml += "<table:table-cell table:style-name=\"titre\" office:value-type=\"string\">";
        AjouterParagraphes(xml, i < m_contenu.Colonnes() ? m_contenu.Titres().at(i) : m_titres.image);
        xml += "</table:table-cell>";
    }
    if (colonnes == 0)
        xml += "<table:table-cell/>";
    xml += "</table:table-row></table:table-header-rows>\n";
    return xml;
}

void ContenuOds::AjouterLigne(const TableExportee::Paquet& paquet, int ligne)
{
    const int colonnes = m_contenu.Colonnes();
    m_morceau += DebutDeLigne;
    for (int i = 0; i < colonnes; ++i)
        Colonne(i).AjouterCellule(m_morceau, paquet.cellules.at(qsizetype{ligne} * colonnes + i));
    if (ColonnesEcrites() > colonnes)
        Colonne(colonnes).AjouterCellule(m_morceau, paquet.images.at(ligne));
    m_morceau += FinDeLigne;
}

void ContenuOds::AjouterLignes(const TableExportee::Paquet& paquet)
{
    for (int ligne = 0; ligne < paquet.lignes; ++ligne, ++m_ligne) {
        const int rang = m_ligne - 1;
        if (rang > 0 && rang % LignesParFeuille() == 0) {
            m_morceau += FinDeFeuille;
            m_morceau += DebutDeFeuille(m_feuilles.at(rang / LignesParFeuille()));
        }
        AjouterLigne(paquet, ligne);
    }
}

void ContenuOds::Recommencer()
{
    m_etat = Fin::Faite;
    m_ligne = 0;
    m_feuilles = Feuilles();
}

const QByteArray& ContenuOds::Suivant()
{
    m_morceau.resize(0); // its room stays
    if (m_etat != Fin::Faite || m_ligne > m_contenu.Lignes() + 1)
        return m_morceau;
    if (m_ligne == 0) {
        m_morceau += Entete() + DebutDeFeuille(m_feuilles.first());
        m_ligne = 1;
    } else if (m_ligne > m_contenu.Lignes()) {
        m_morceau += FinDeFeuille;
        m_morceau += FinDuContenu;
        ++m_ligne;
    } else if (const auto paquet = m_contenu.Lire(m_ligne)) {
        AjouterLignes(*paquet);
        const int64_t fait =
            int64_t{PartDeLExamen} * m_contenu.Lignes() + int64_t{Parts - PartDeLExamen} * (m_ligne - 1);
        if (!m_progression.Avancer(fait, int64_t{Parts} * m_contenu.Lignes()))
            m_etat = Fin::Abandonnee;
    } else {
        m_etat = Fin::TableChangee;
    }
    return m_morceau;
}
