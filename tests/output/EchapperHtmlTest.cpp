#include "output/EchapperHtml.h"

#include "catalogue/texte/PlumeOctets.h"
#include "platform/PageDeCode.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* s_minuscules = "à â ç é è ê ë î ï ô ù œ éé";
constexpr const char* s_entites = "&agrave; &acirc; &ccedil; &eacute; &egrave; &ecirc; &euml; &icirc; &iuml; &ocirc; "
                                  "&ugrave; oe &eacute;&eacute;";
constexpr const char* s_intouches = "À Â Ç É È Ê Ë Î Ï Ô Ù Œ û ü ÿ & < > \" ' &eacute; <b>";

struct Page : Puits
{
    QByteArray texte;
    bool Recevoir(const char* octets, size_t taille) override
    {
        texte.append(octets, static_cast<qsizetype>(taille));
        return true;
    }
};

QByteArray Ecrit(const QString& texte)
{
    Page page;
    PlumeOctets plume(page);
    EcrireEchappe(plume, PageDeCode::VersOctets(texte));
    plume.Vider();
    return page.texte;
}

} // namespace

TEST(EchapperHtml, ReplacesTwelveSmallLetters)
{
    QString texte = s_minuscules;
    EXPECT_EQ(EchapperHtml(texte), s_entites);
    EXPECT_EQ(Ecrit(s_minuscules), s_entites);
}

TEST(EchapperHtml, LeavesTheResultInTheCallersTextToo)
{
    QString texte = "été";
    EchapperHtml(texte);
    EXPECT_EQ(texte, "&eacute;t&eacute;");
}

TEST(EchapperHtml, TouchesNothingElse)
{
    QString texte = s_intouches;
    EXPECT_EQ(EchapperHtml(texte), s_intouches);
    EXPECT_EQ(Ecrit(s_intouches), PageDeCode::VersOctets(QString(s_intouches)));
}
