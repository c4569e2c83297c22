#include "architecture/TextesDesMessages.h"

#include "architecture/Inclusions.h"
#include "extensions/langue/modLang.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

MessagesDesSources MessagesDe(const char* source)
{
    MessagesDesSources messages;
    LireMessages(QString::fromUtf8(source), messages);
    return messages;
}

/// What the program's own sources say.
MessagesDesSources MessagesDuProgramme()
{
    MessagesDesSources messages;
    const QString racine = QStringLiteral(ZELVANE_SOURCES);
    for (const QString& nom : FichiersDe({racine, {}, {}})) {
        QFile fichier(racine + u'/' + nom);
        if (fichier.open(QIODevice::ReadOnly))
            LireMessages(QString::fromUtf8(fichier.readAll()), messages);
    }
    return messages;
}

TEST(LireMessages, TakesTheLiteralBesideTheKey)
{
    const MessagesDesSources lus = MessagesDe(R"code(
        Dire(u"msg1"_s, u"un"_s);
        LangMsg(QStringLiteral("msg2"),
                QStringLiteral("de"
                               "ux")).texte;
        return f("msg3", u"l'une, "
                         u"\"trois\""_s, 1'000);
        if (c == u'"' || c == '\'')
            Demander(u"msg1"_s, u"encore"_s, x) || Demander(u"msg1"_s, u"un"_s, QString());
    )code");
    EXPECT_EQ(lus.textes, (std::map<QString, QStringList>{
                              {"msg1", {"un", "encore"}}, {"msg2", {"deux"}}, {"msg3", {R"(l'une, \"trois\")"}}}));
    EXPECT_TRUE(lus.clesSeules.isEmpty());
}

TEST(LireMessages, PassesOverCommentsAndOtherLiterals)
{
    const MessagesDesSources lus = MessagesDe(R"code(
        // LangMsg(u"msg1"_s, u"un"_s) as in "msg2", "x"
        /* f("msg3",
             "trois") */
        f(u"http://a"_s, u"msg"_s, u"x"_s, u"amsg4"_s, u"x"_s);
        g(R"x("msg8", "x")x"); g(u"msg5"_s); if (cle == u"msg6"_s) return {u"msg7"_s};
    )code");
    EXPECT_TRUE(lus.textes.empty());
}

TEST(LireMessages, TellsAKeyWhoseTextIsNoLiteral)
{
    EXPECT_EQ(MessagesDe(R"(LangMsg(u"msg1"_s, texte); LangMsg(u"msg2"_s, u"deux"_s);)").clesSeules,
              QStringList("msg1"));
}

// The two below fail when a message cannot be read from the sources, or when a key is given a second text that
// TextesDuProgramme does not know: another place's question would then be shown once lang/default.ini is the language.

TEST(MessagesDuProgramme, EachKeyStandsBesideItsText)
{
    const MessagesDesSources lus = MessagesDuProgramme();
    EXPECT_GT(lus.textes.size(), 40U);
    EXPECT_EQ(lus.textes.at("msg62"), QStringList("Erreur d'enregistrement !"));
    EXPECT_EQ(lus.clesSeules.join(u' ').toStdString(), "");
}

TEST(MessagesDuProgramme, AKeyWithSeveralTextsIsKnownWithAllOfThem)
{
    for (const auto& [cle, textes] : MessagesDuProgramme().textes) {
        if (textes.size() < 2)
            continue;
        for (const QString& texte : textes)
            EXPECT_TRUE(TextesDuProgramme(cle).contains(texte)) << cle.toStdString() << ": " << texte.toStdString();
    }
}

} // namespace
