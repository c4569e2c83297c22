// Ecrivain.h: the pages, with images and without. Values go out as they stand, "<" and "&" included: a page holds what
// the user typed, tags as well.
#include "output/Ecrivain.h"

#include "base/PageDAccueil.h"
#include "output/EchapperHtml.h"
#include "output/ImagesDePage.h"

#include <QByteArray>

#include <algorithm>

using namespace Qt::StringLiterals;
using stockage::Cellule;
using stockage::Codage;
using stockage::EntreeStockee;

namespace {

Cellule PremierCaractere(Cellule cellule)
{
    const auto suite = [](char octet) { return (octet & 0xC0) == 0x80; };
    const uint32_t taille = std::min<uint32_t>(cellule.taille, 1);
    const char* fin = cellule.debut + taille;
    if (cellule.codage == Codage::Utf8)
        fin = std::find_if_not(fin, cellule.debut + cellule.taille, suite);
    cellule.taille = static_cast<uint32_t>(fin - cellule.debut);
    return cellule;
}

/// A letter is there also when no entry begins with it.
void EcrireLettres(PlumeOctets& plume)
{
    for (char lettre = 'A'; lettre <= 'Z'; ++lettre) {
        plume.Ascii("<a href=\"#");
        plume.Octets(&lettre, 1);
        plume.Ascii("\">");
        plume.Octets(&lettre, 1);
        plume.Ascii("</a> - ");
    }
}

void EcrireTexteEchappe(PlumeExport& plume, QString texte)
{
    plume.Texte(EchapperHtml(texte));
}

class PageAvecImages : public Ecrivain
{
public:
    PageAvecImages(const SujetExport& sujet, ImagesDePage& images);

    void EcrireTete(PlumeExport& plume) override;
    void EcrireEntree(PlumeExport& plume, int numero, const EntreeStockee& entree) override;
    void EcrirePied(PlumeExport& plume) override;

private:
    void EcrireImage(PlumeExport& plume, const Cellule& image);
    void EcrireParagraphe(PlumeExport& plume, size_t colonne, const EntreeStockee& entree) const;

    ImagesDePage& m_images;
    std::vector<int> m_colonnes;
    std::vector<QByteArray> m_debuts; ///< of the paragraphs of m_colonnes: what stands before the value
};

PageAvecImages::PageAvecImages(const SujetExport& sujet, ImagesDePage& images)
    : Ecrivain(sujet), m_images(images), m_colonnes(sujet.Cochees(1, sujet.Colonnes()))
{
}

void PageAvecImages::EcrireTete(PlumeExport& plume)
{
    m_images.CreerDossier();
    const QString nombre = QString::number(Sujet().Entrees());
    for (const int colonne : m_colonnes) {
        QString debut = Sujet().Titre(colonne) + u": </u> "_s;
        m_debuts.push_back("<p><u>" + plume.EnOctets(EchapperHtml(debut)).toByteArray());
    }
    plume.Ascii("<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\"\r\n"
                " \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\">\r\n"
                "<html>\r\n"
                "<head>\r\n"
                "<meta http-equiv=\"content-type\" content=\"text/html; charset=iso-8859-1\" />\r\n"
                "<title>");
    EcrireTexteEchappe(plume, Sujet().nom + u" : "_s + nombre);
    plume.Ascii("</title>\r\n"
                "<style type=\"text/css\">\r\n"
                "<!--\r\n"
                "u{color:#ff1f1f;}\r\n"
                "table {border:2px solid #003399}\r\n"
                "td{border:0;border-bottom:1px solid #003399;padding:2px;}\r\n"
                "th{border:0;border-bottom:2px solid #003399;padding:2px;background:#C1D6FF}\r\n"
                "p{margin:0}\r\n"
                "-->\r\n"
                "</style>\r\n"
                "</head>\r\n"
                "<body bgcolor=\"#FFFFFF\" text=\"#000000\" link=\"#000080\" vlink=\"#800080\" alink=\"#FF0000\">\r\n"
                "<div align=\"center\"><u><b>");
    EcrireTexteEchappe(plume, Sujet().nom + u"</b> : "_s + nombre);
    plume.Ascii(" </u>\r\n"
                "<br/>- ");
    EcrireLettres(plume);
    plume.Ascii(" <table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"0\">\r\n"
                "  <tr>\r\n"
                "   <th align=\"left\" valign=\"top\">Images</th>\r\n"
                "   <th>&nbsp;</th>\r\n"
                "  </tr>\r\n");
}

void PageAvecImages::EcrireImage(PlumeExport& plume, const Cellule& image)
{
    if (image.taille == 0) {
        plume.Ascii("&nbsp;</td>"); // the line goes on
        return;
    }
    m_images.Copier(image.Texte());
    plume.Ascii("<img src=\"images\\");
    EcrireEchappe(plume, plume.EnOctets(image));
    plume.Ascii("\" width=\"150\" height=\"200\" alt=\"\"/></td>\r\n");
}

void PageAvecImages::EcrireParagraphe(PlumeExport& plume, size_t colonne, const EntreeStockee& entree) const
{
    plume.Tous(m_debuts[colonne]);
    EcrireEchappe(plume, plume.EnOctets(entree.Champ(m_colonnes[colonne] - 1)));
    plume.Ascii("</p>");
    if (m_colonnes[colonne] > 1) // behind the first column the line goes on
        plume.FinDeLigne();
}

void PageAvecImages::EcrireEntree(PlumeExport& plume, int numero, const EntreeStockee& entree)
{
    plume.Ascii("  <tr>\r\n"
                "   <td width=\"17%\" align=\"left\" valign=\"top\"><a name=\"");
    EcrireEchappe(plume, plume.EnOctets(PremierCaractere(entree.Champ(0))));
    plume.Ascii("\"><a/>\r\n");
    EcrireImage(plume, entree.Image());
    plume.Ascii("   <td><div align=\"left\">\r\n");
    if (Sujet().choix.numeroter) {
        plume.Texte(u"<p><u>N°"_s);
        plume.Nombre(numero);
        plume.Ascii("</u><br/></p>\r\n");
    }
    for (size_t i = 0; i < m_colonnes.size(); ++i)
        EcrireParagraphe(plume, i, entree);
    plume.Ascii("  </div></td></tr>\r\n");
}

void PageAvecImages::EcrirePied(PlumeExport& plume)
{
    plume.Ascii(" </table>\r\n"
                "<br/>\r\n"
                "<hr width=\"75%\"/>\r\n"
                "<font size=\"2\"><a href=\"");
    plume.Texte(PageDAccueil);
    // The version here is one behind. It is meant.
    plume.Ascii("\">Zelvane v2.1</a> by Morvenal</font></div>\r\n"
                "</body>\r\n"
                "</html>\r\n");
}

class PageSansImages : public Ecrivain
{
public:
    explicit PageSansImages(const SujetExport& sujet) : Ecrivain(sujet), m_colonnes(sujet.Cochees(1, sujet.Colonnes()))
    {
    }

    void EcrireTete(PlumeExport& plume) override;
    void EcrireEntree(PlumeExport& plume, int numero, const EntreeStockee& entree) override;
    void EcrirePied(PlumeExport& plume) override;

private:
    std::vector<int> m_colonnes;
};

void PageSansImages::EcrireTete(PlumeExport& plume)
{
    plume.Ascii("<HTML>\r\n"
                "<BODY BGCOLOR=\"#FFFFFF\" TEXT=\"#000000\" LINK=\"#000080\" VLINK=\"#800080\" ALINK=\"#FF0000\">\r\n"
                "<DIV ALIGN=Center><U><B>");
    plume.Texte(Sujet().nom);
    plume.Ascii("</B> : ");
    plume.Nombre(Sujet().Entrees());
    plume.Ascii(" </U>\r\n"
                "<br/>- ");
    EcrireLettres(plume);
    plume.Ascii(" <TABLE BORDER=1 cellspacing=0 cellpadding=0>\r\n"
                "  <TR>\r\n");
    if (Sujet().choix.numeroter)
        plume.Texte(u"   <TD><B>N°</B></TD>\r\n"_s);
    for (const int colonne : m_colonnes) {
        plume.Ascii("   <TD><B>");
        plume.Texte(Sujet().Titre(colonne));
        plume.Ascii("</B></TD>\r\n");
    }
    plume.Ascii("  </TR>\r\n");
}

void PageSansImages::EcrireEntree(PlumeExport& plume, int numero, const EntreeStockee& entree)
{
    plume.Ascii("  <TR><a name=\"");
    plume.Champ(PremierCaractere(entree.Champ(0)));
    plume.Ascii("\">\r\n");
    if (Sujet().choix.numeroter) {
        plume.Ascii("   <TD>");
        plume.Nombre(numero);
        plume.Ascii("</TD>\r\n");
    }
    for (const int colonne : m_colonnes) {
        plume.Ascii("   <TD>");
        plume.Champ(entree.Champ(colonne - 1));
        plume.Ascii(colonne == 1 ? "</TD>\r\n" : "&nbsp;</TD>\r\n");
    }
    plume.Ascii("  </TR>\r\n");
}

void PageSansImages::EcrirePied(PlumeExport& plume)
{
    plume.Ascii(" </TABLE>\r\n"
                "<br/>\r\n"
                "<HR width=75%>\r\n"
                "<DIV ALIGN=center><FONT SIZE=2>Zelvane v2.2 by Morvenal</FONT></DIV>\r\n"
                "</HTML>\r\n");
}

} // namespace

std::unique_ptr<Ecrivain> EcrivainPageAvecImages(const SujetExport& sujet, ImagesDePage& images)
{
    return std::make_unique<PageAvecImages>(sujet, images);
}

std::unique_ptr<Ecrivain> EcrivainPageSansImages(const SujetExport& sujet)
{
    return std::make_unique<PageSansImages>(sujet);
}
