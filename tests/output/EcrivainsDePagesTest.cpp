#include "ExportDeTest.h"

namespace {

const QByteArray s_liens =
    R"(<a href="#A">A</a> - <a href="#B">B</a> - <a href="#C">C</a> - <a href="#D">D</a> - <a href="#E">E</a> - )"
    R"(<a href="#F">F</a> - <a href="#G">G</a> - <a href="#H">H</a> - <a href="#I">I</a> - <a href="#J">J</a> - )"
    R"(<a href="#K">K</a> - <a href="#L">L</a> - <a href="#M">M</a> - <a href="#N">N</a> - <a href="#O">O</a> - )"
    R"(<a href="#P">P</a> - <a href="#Q">Q</a> - <a href="#R">R</a> - <a href="#S">S</a> - <a href="#T">T</a> - )"
    R"(<a href="#U">U</a> - <a href="#V">V</a> - <a href="#W">W</a> - <a href="#X">X</a> - <a href="#Y">Y</a> - )"
    R"(<a href="#Z">Z</a> - )";

QByteArray TeteAvecImages(const QByteArray& nom, const QByteArray& nombre)
{
    return Lignes({
        R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Transitional//EN")",
        R"( "http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd">)",
        "<html>",
        "<head>",
        R"(<meta http-equiv="content-type" content="text/html; charset=iso-8859-1" />)",
        "<title>" + nom + " : " + nombre + "</title>",
        R"(<style type="text/css">)",
        "<!--",
        "u{color:#ff1f1f;}",
        "table {border:2px solid #003399}",
        "td{border:0;border-bottom:1px solid #003399;padding:2px;}",
        "th{border:0;border-bottom:2px solid #003399;padding:2px;background:#C1D6FF}",
        "p{margin:0}",
        "-->",
        "</style>",
        "</head>",
        R"(<body bgcolor="#FFFFFF" text="#000000" link="#000080" vlink="#800080" alink="#FF0000">)",
        R"(<div align="center"><u><b>)" + nom + "</b> : " + nombre + " </u>",
        "<br/>- " + s_liens + R"( <table width="100%" border="1" cellspacing="0" cellpadding="0">)",
        "  <tr>",
        R"(   <th align="left" valign="top">Images</th>)",
        "   <th>&nbsp;</th>",
        "  </tr>",
    });
}

QByteArray PiedAvecImages()
{
    return Lignes({
        " </table>",
        "<br/>",
        R"(<hr width="75%"/>)",
        R"(<font size="2"><a href="https://zelvane.example/">Zelvane v2.1</a> by Morvenal</font></div>)",
        "</body>",
        "</html>",
    });
}

/// The lines of an entry on the page with images before and behind its paragraphs.
QByteArray Rang(const QByteArray& ancre, const QByteArray& image, const QByteArray& paragraphes)
{
    return "  <tr>\r\n   <td width=\"17%\" align=\"left\" valign=\"top\"><a name=\"" + ancre + "\"><a/>\r\n" + image +
           "   <td><div align=\"left\">\r\n" + paragraphes + "  </div></td></tr>\r\n";
}

const QByteArray s_sansImage = "&nbsp;</td>";

QByteArray PageSans(const QByteArray& nombre, const QByteArray& titres, const QByteArray& rangs)
{
    return Lignes({"<HTML>",
                   R"(<BODY BGCOLOR="#FFFFFF" TEXT="#000000" LINK="#000080" VLINK="#800080" ALINK="#FF0000">)",
                   "<DIV ALIGN=Center><U><B>" + EnHuitBits("été.qrt") + "</B> : " + nombre + " </U>",
                   "<br/>- " + s_liens + " <TABLE BORDER=1 cellspacing=0 cellpadding=0>", "  <TR>"}) +
           titres + "  </TR>\r\n" + rangs +
           Lignes({" </TABLE>", "<br/>", "<HR width=75%>",
                   "<DIV ALIGN=center><FONT SIZE=2>Zelvane v2.2 by Morvenal</FONT></DIV>", "</HTML>"});
}

} // namespace

using PageAvecImagesTest = ExportDeTest;
using PageSansImagesTest = ExportDeTest;

TEST_F(PageAvecImagesTest, IsWrittenToTheByte)
{
    Colonnes({"Titre", "Année", "Prêté"});
    AjouterEntrees(d.table, {{"élan & <b>", "1959", "Éric"}, {"Blue", "", ""}});
    d.table.ListItems(1).SetTag("été.jpg");
    EXPECT_EQ(Exporter(GenreExport::PageAvecImages),
              TeteAvecImages("&eacute;t&eacute;.qrt", "2") +
                  EnHuitBits(Rang("&eacute;",
                                  "<img src=\"images\\&eacute;t&eacute;.jpg\" width=\"150\" height=\"200\" "
                                  "alt=\"\"/></td>\r\n",
                                  "<p><u>Titre: </u> &eacute;lan & <b></p><p><u>Ann&eacute;e: </u> 1959</p>\r\n"
                                  "<p><u>Pr&ecirc;t&eacute;: </u> Éric</p>\r\n") +
                             Rang("B", s_sansImage,
                                  "<p><u>Titre: </u> Blue</p><p><u>Ann&eacute;e: </u> </p>\r\n"
                                  "<p><u>Pr&ecirc;t&eacute;: </u> </p>\r\n")) +
                  PiedAvecImages());
    EXPECT_TRUE(issue.EstEntiere());
}

TEST_F(PageAvecImagesTest, NumbersAnEntryAlsoWhereTheFirstColumnIsNotTicked)
{
    Colonnes({"Titre", "Artiste"});
    AjouterEntrees(d.table, {{"So What", "Miles"}});
    Cocher({2});
    choix.numeroter = true;
    EXPECT_EQ(Exporter(GenreExport::PageAvecImages),
              TeteAvecImages("&eacute;t&eacute;.qrt", "1") +
                  Rang("S", s_sansImage, EnHuitBits("<p><u>N°1</u><br/></p>\r\n<p><u>Artiste: </u> Miles</p>\r\n")) +
                  PiedAvecImages());
}

TEST_F(PageAvecImagesTest, OneColumnLeavesTheLineOpen)
{
    Colonnes({"Titre"});
    AjouterEntrees(d.table, {{""}});
    EXPECT_EQ(Exporter(GenreExport::PageAvecImages), TeteAvecImages("&eacute;t&eacute;.qrt", "1") +
                                                         Rang("", s_sansImage, "<p><u>Titre: </u> </p>") +
                                                         PiedAvecImages())
        << "an empty value has an anchor with an empty name";
}

TEST_F(PageAvecImagesTest, ASelectionKeepsItsNumbersAndTheCountOfAll)
{
    Colonnes({"Titre"});
    AjouterEntrees(d.table, {{"a"}, {"b"}, {"c"}});
    choix.selectionUniquement = choix.numeroter = true;
    EXPECT_EQ(Exporter(GenreExport::PageAvecImages), TeteAvecImages("&eacute;t&eacute;.qrt", "3") + PiedAvecImages());
    d.table.Selectionner(3, 3, true);
    EXPECT_EQ(Exporter(GenreExport::PageAvecImages),
              TeteAvecImages("&eacute;t&eacute;.qrt", "3") +
                  Rang("c", s_sansImage, EnHuitBits("<p><u>N°3</u><br/></p>\r\n<p><u>Titre: </u> c</p>")) +
                  PiedAvecImages());
}

TEST_F(PageAvecImagesTest, AnImageCellIsThereWhicheverColumnsAreTicked)
{
    Colonnes({"Titre", "Artiste"});
    AjouterEntrees(d.table, {{"So What", "Miles"}});
    d.table.ListItems(1).SetTag("a.jpg");
    Cocher({});
    EXPECT_TRUE(
        Exporter(GenreExport::PageAvecImages)
            .contains(Rang("S", "<img src=\"images\\a.jpg\" width=\"150\" height=\"200\" alt=\"\"/></td>\r\n", "")));
}

TEST_F(PageAvecImagesTest, CharactersThatTheCodePageLacksAreReferences)
{
    d.doc.SetCheminReel("/Ж.qrt");
    Colonnes({"Ж"});
    AjouterEntrees(d.table, {{"🎵é"}});
    d.table.ListItems(1).SetTag("日.jpg");
    EXPECT_EQ(Exporter(GenreExport::PageAvecImages),
              TeteAvecImages("&#1046;.qrt", "1") +
                  Rang("&#127925;",
                       "<img src=\"images\\&#26085;.jpg\" width=\"150\" height=\"200\" alt=\"\"/></td>\r\n",
                       "<p><u>&#1046;: </u> &#127925;&eacute;</p>") +
                  PiedAvecImages());
}

TEST_F(PageSansImagesTest, IsWrittenToTheByte)
{
    Colonnes({"Titre", "Année", "Prêté"});
    AjouterEntrees(d.table, {{"élan & <b>", "1959", "Éric"}, {"", "", ""}});
    d.table.ListItems(1).SetTag("a.jpg");
    EXPECT_EQ(Exporter(GenreExport::PageSansImages),
              PageSans("2",
                       EnHuitBits(Lignes(
                           {"   <TD><B>Titre</B></TD>", "   <TD><B>Année</B></TD>", "   <TD><B>Prêté</B></TD>"})),
                       EnHuitBits(Lignes({"  <TR><a name=\"é\">", "   <TD>élan & <b></TD>", "   <TD>1959&nbsp;</TD>",
                                          "   <TD>Éric&nbsp;</TD>", "  </TR>", "  <TR><a name=\"\">", "   <TD></TD>",
                                          "   <TD>&nbsp;</TD>", "   <TD>&nbsp;</TD>", "  </TR>"}))));
    EXPECT_FALSE(page.Existe("images"));
}

TEST_F(PageSansImagesTest, HasTheTickedColumnsAndNumbers)
{
    Colonnes({"Titre", "Artiste", "Prêté"});
    AjouterEntrees(d.table, {{"So What", "Miles", ""}, {"Naima", "Coltrane", ""}});
    Cocher({2});
    choix.numeroter = choix.selectionUniquement = true;
    d.table.Selectionner(2, 2, true);
    EXPECT_EQ(Exporter(GenreExport::PageSansImages),
              PageSans("2", EnHuitBits(Lignes({"   <TD><B>N°</B></TD>", "   <TD><B>Artiste</B></TD>"})),
                       Lignes({"  <TR><a name=\"N\">", "   <TD>2</TD>", "   <TD>Coltrane&nbsp;</TD>", "  </TR>"})));
}

TEST_F(PageSansImagesTest, CharactersThatTheCodePageLacksAreReferences)
{
    Colonnes({"Ж", "B"});
    AjouterEntrees(d.table, {{"🎵", "Жé"}, {QString(QChar(0xD83C)), "x"}});
    EXPECT_EQ(Exporter(GenreExport::PageSansImages),
              PageSans("2", Lignes({"   <TD><B>&#1046;</B></TD>", "   <TD><B>B</B></TD>"}),
                       EnHuitBits(Lignes({"  <TR><a name=\"&#127925;\">", "   <TD>&#127925;</TD>",
                                          "   <TD>&#1046;é&nbsp;</TD>", "  </TR>", "  <TR><a name=\"?\">",
                                          "   <TD>?</TD>", "   <TD>x&nbsp;</TD>", "  </TR>"}))))
        << "half a pair is \"?\" in the table already";
}
