#include "extensions/plugins/QrtScript.h"

#include "extensions/langue/modLang.h"
#include "platform/ComposantsDuSysteme.h"
#include "support/DossierDeTest.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(QrtScript, BlanksBecomePlusAndPairsOfThemOne)
{
    const QrtScript script;
    EXPECT_EQ(script.UrlEncode(u"sans"_s), "sans");
    EXPECT_EQ(script.UrlEncode(u"a b"_s), "a+b");
    EXPECT_EQ(script.UrlEncode(u"a  b"_s), "a+b");
    EXPECT_EQ(script.UrlEncode(u"a   b"_s), "a++b");
    EXPECT_EQ(script.UrlEncode(u"a    b"_s), "a++b");
    EXPECT_EQ(script.UrlEncode(u"é&=%+"_s), u"é&=%+"_s) << "nothing else is encoded";
}

TEST(QrtScript, TheWebGivesNothing)
{
    const QRTWebScript script;
    EXPECT_FALSE(script.GetPage(u"http://exemple.invalid/"_s));
    EXPECT_EQ(script.GetText(u"a"_s, u"b"_s), "");
}

TEST(QrtScript, BothAreMadeByName)
{
    ComposantsDuSysteme composants;
    InscrireScripts(composants);
    QString adresse;
    const auto script = composants.Creer(u"QrtScript"_s);
    ASSERT_TRUE(script);
    EXPECT_TRUE(
        QMetaObject::invokeMethod(script.get(), "UrlEncode", Q_RETURN_ARG(QString, adresse), Q_ARG(QString, u"a b"_s)));
    EXPECT_EQ(adresse, "a+b");
    EXPECT_TRUE(qobject_cast<QRTWebScript*>(composants.Creer(u"QRTWebScript"_s).get()));
}

TEST(QrtTextes, SpeakTheLanguageInForce)
{
    const DossierDeTest& dossier = PlateformeDeTest::Courante().dossier;
    FichierLangue = dossier.Ecrire("lang/english.ini", "[other]\r\nplugAUn=One\r\n");
    ComposantsDuSysteme composants;
    InscrireScripts(composants);
    const auto textes = composants.Creer(u"QrtTextes"_s);
    ASSERT_TRUE(textes);
    for (const auto& [cle, texte] : {std::pair(u"plugAUn"_s, u"One"_s), std::pair(u"plugADeux"_s, u"d"_s)}) {
        QString lu;
        EXPECT_TRUE(QMetaObject::invokeMethod(textes.get(), "LangMsg", Q_RETURN_ARG(QString, lu), Q_ARG(QString, cle),
                                              Q_ARG(QString, u"d"_s)));
        EXPECT_EQ(lu, texte);
    }
}
