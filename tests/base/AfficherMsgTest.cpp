#include "base/AfficherMsg.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"

#include <gtest/gtest.h>

namespace {

TEST(AfficherMsg, HandsTheMessageToThePresenter)
{
    FileDeReponses reponses;
    reponses.Preparer(RepNon);

    EXPECT_EQ(AfficherMsg(Message("msg18", "Continuer ?"), MsgOuiNonAnnuler, "Titre"), RepNon);

    ASSERT_EQ(reponses.Affiches().size(), 1);
    EXPECT_EQ(reponses.Affiches()[0].message.cle, "msg18");
    EXPECT_EQ(reponses.Affiches()[0].message.texte, "Continuer ?");
    EXPECT_EQ(reponses.Affiches()[0].genre, 3);
    EXPECT_EQ(reponses.Affiches()[0].titre, "Titre");
}

TEST(AfficherMsg, HasTheNumbersOfTheSystemsMessageBox)
{
    EXPECT_EQ((QList<int>{MsgOk, MsgOkAnnuler, MsgOuiNonAnnuler, MsgOuiNon}), (QList<int>{0, 1, 3, 4}));
    EXPECT_EQ((QList<int>{RepOk, RepAnnuler, RepOui, RepNon}), (QList<int>{1, 2, 6, 7}));
}

TEST(AfficherMsg, IsCancelledWithoutAPresenter)
{
    PresentateurMessages* const avant = InstallerPresentateur(nullptr);

    EXPECT_EQ(AfficherMsg(QStringLiteral("x"), MsgOuiNon, QString()), RepAnnuler);
    EXPECT_EQ(DemanderMotDePasse("t", "i"), "");
    EXPECT_EQ(SaisirTexte("l", "d"), "d");

    InstallerPresentateur(avant);
}

TEST(DemanderMotDePasse, AsksThePresenter)
{
    FileDeReponses reponses;
    reponses.PreparerMotDePasse("zelvane");

    EXPECT_EQ(DemanderMotDePasse("t", "i"), "zelvane");
}

TEST(SaisirTexte, AsksThePresenter)
{
    FileDeReponses reponses;
    reponses.PreparerTexte("Jazz");
    reponses.PreparerTexte("");
    reponses.PreparerTexte(std::nullopt);

    EXPECT_EQ(SaisirTexte("Texte", "Rock"), "Jazz");
    EXPECT_EQ(SaisirTexte("Texte", "Rock"), "");
    EXPECT_EQ(SaisirTexte("Texte", "Rock"), "Rock") << "cancelled";
    EXPECT_EQ(reponses.TextesDemandes(), (QList<std::pair<QString, QString>>(3, {"Texte", "Rock"})));
}

TEST(SaisirTexte, IsTheTextProposedWhereNobodyCanAsk)
{
    struct : PresentateurMessages
    {
        int Afficher(const Message&, int, const QString&) override { return RepOk; }
        QString DemanderMotDePasse(const QString&, const QString&) override { return QString(); }
    } muet;
    PresentateurMessages* const avant = InstallerPresentateur(&muet);

    EXPECT_EQ(SaisirTexte("Texte", "Rock"), "Rock");

    InstallerPresentateur(avant);
}

TEST(Message, KeepsItsKeyWhenATextIsPutTogether)
{
    const Message message("msg92", "Le fichier '%1' manque %1");

    EXPECT_EQ((message + QStringLiteral("\r\nfin")).cle, "msg92");
    EXPECT_EQ((message + QStringLiteral(" fin")).texte, "Le fichier '%1' manque %1 fin");
    EXPECT_EQ(message.Remplacer("%1", "a").texte, "Le fichier 'a' manque a");
    EXPECT_EQ(message.Remplacer("%1", "a").cle, "msg92");
    EXPECT_EQ(Message(u"nu").cle, "");
}

} // namespace
