#include "entries/ColonnesDeCategorie.h"

#include "base/AfficherMsg.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"

#include <gtest/gtest.h>

namespace {

/// As typed by a user, title after title; the last one is in hand.
ColonnesDeCategorie Colonnes(const QStringList& titres)
{
    ColonnesDeCategorie colonnes;
    for (const QString& titre : titres) {
        colonnes.Ajouter();
        colonnes.Renommer(titre);
    }
    return colonnes;
}

/// Letter by letter, as the field of the dialog tells it.
void Taper(ColonnesDeCategorie& colonnes, const QString& titre)
{
    for (qsizetype n = 1; n <= titre.size(); ++n)
        colonnes.Renommer(titre.left(n));
}

class ColonnesDeCategorieTest : public testing::Test
{
protected:
    FileDeReponses reponses;
};

} // namespace

TEST_F(ColonnesDeCategorieTest, ThereIsOneEmptyTitleInHandAtFirst)
{
    const ColonnesDeCategorie colonnes;
    EXPECT_EQ(colonnes.Titres(), QStringList({""}));
    EXPECT_EQ(colonnes.Choisie(), 1);
    EXPECT_EQ(colonnes.Dependante(), 0);
}

TEST_F(ColonnesDeCategorieTest, TheTitleInHandIsRenamed)
{
    ColonnesDeCategorie colonnes = Colonnes({"Titre", "Artiste"});
    colonnes.Choisir(1);
    colonnes.Renommer("Album");
    EXPECT_EQ(colonnes.Titres(), QStringList({"Album", "Artiste"}));
    EXPECT_EQ(colonnes.TitreChoisi(), "Album");
}

TEST_F(ColonnesDeCategorieTest, WithNothingInHandNothingIsRenamedDeletedOrMoved)
{
    ColonnesDeCategorie colonnes = Colonnes({"Titre", "Artiste"});
    for (const int position : {0, -1, 3}) {
        colonnes.Choisir(position);
        EXPECT_EQ(colonnes.Choisie(), 0) << position;
    }
    colonnes.Renommer("Album");
    EXPECT_FALSE(colonnes.Supprimer());
    EXPECT_FALSE(colonnes.PeutMonter() || colonnes.PeutDescendre());
    colonnes.Monter();
    colonnes.Descendre();
    EXPECT_EQ(colonnes.Titres(), QStringList({"Titre", "Artiste"}));
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(ColonnesDeCategorieTest, AddingTakesTheEmptyTitleThereIs)
{
    ColonnesDeCategorie colonnes;
    colonnes.Ajouter();
    colonnes.Ajouter();
    EXPECT_EQ(colonnes.Titres(), QStringList({""})) << "two empty titles cannot arise so";
    colonnes.Renommer("Titre");
    colonnes.Ajouter();
    EXPECT_EQ(colonnes.Titres(), QStringList({"Titre", ""}));
    EXPECT_EQ(colonnes.Choisie(), 2);
    colonnes.Choisir(1);
    colonnes.Ajouter();
    EXPECT_EQ(colonnes.Choisie(), 2);
}

TEST_F(ColonnesDeCategorieTest, OfSeveralEmptyTitlesTheLastIsTaken)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b", "c", "d"});
    for (const int position : {1, 3}) {
        colonnes.Choisir(position);
        colonnes.Renommer("");
    }
    colonnes.Ajouter();
    EXPECT_EQ(colonnes.Choisie(), 3);
    EXPECT_EQ(colonnes.Nombre(), 4);
}

TEST_F(ColonnesDeCategorieTest, DeletingAsksAndTakesTheOneBefore)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b", "c"});
    reponses.Preparer(RepOui);
    EXPECT_TRUE(colonnes.Supprimer());
    EXPECT_EQ(colonnes.Titres(), QStringList({"a", "b"}));
    EXPECT_EQ(colonnes.TitreChoisi(), "b");
    ASSERT_EQ(reponses.Cles(), QStringList({"msg57"}));
    const FileDeReponses::Affiche& question = reponses.Affiches().first();
    EXPECT_EQ(question.message.texte, "Etes-vous sure de vouloir supprimer cette colonne");
    EXPECT_EQ(question.genre, MsgOuiNon);
    EXPECT_EQ(question.titre, "");
}

TEST_F(ColonnesDeCategorieTest, AnyAnswerButYesKeepsTheColumn)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b"});
    for (const int reponse : {RepNon, RepAnnuler}) {
        reponses.Preparer(reponse);
        EXPECT_FALSE(colonnes.Supprimer());
        EXPECT_EQ(colonnes.Titres(), QStringList({"a", "b"}));
        EXPECT_EQ(colonnes.Choisie(), 2);
    }
}

TEST_F(ColonnesDeCategorieTest, NothingIsInHandAfterTheFirstWasDeleted)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b"});
    colonnes.Choisir(1);
    reponses.Preparer(RepOui);
    EXPECT_TRUE(colonnes.Supprimer());
    EXPECT_EQ(colonnes.Titres(), QStringList({"b"}));
    EXPECT_EQ(colonnes.Choisie(), 0);
}

TEST_F(ColonnesDeCategorieTest, TheTitleOfTheLoanColumnFreezesOnceItIsTyped)
{
    ColonnesDeCategorie colonnes;
    Taper(colonnes, "Prêtées");
    EXPECT_EQ(colonnes.Titres(), QStringList({"Prêté"}));
    EXPECT_TRUE(colonnes.TitreFige());
    colonnes.Renommer("");
    EXPECT_EQ(colonnes.Titres(), QStringList({"Prêté"}));
    EXPECT_FALSE(colonnes.Supprimer());
    ASSERT_EQ(reponses.Cles(), QStringList({"msg56"})) << "and no question";
    EXPECT_EQ(reponses.Affiches().first().message.texte, "Vous ne pouvez pas supprimer cette colonne");
    EXPECT_EQ(reponses.Affiches().first().genre, MsgOk);
}

TEST_F(ColonnesDeCategorieTest, OnlyThatVeryTitleFreezes)
{
    for (const char* titre : {"prêté", "Prete", "Prêté "}) {
        ColonnesDeCategorie colonnes;
        colonnes.Renommer(titre);
        EXPECT_FALSE(colonnes.TitreFige()) << titre;
        colonnes.Renommer("autre");
        EXPECT_EQ(colonnes.TitreChoisi(), "autre") << titre;
    }
}

TEST_F(ColonnesDeCategorieTest, MovingSwapsWithTheNeighbourAndKeepsTheColumnInHand)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b", "c"});
    colonnes.Monter();
    EXPECT_EQ(colonnes.Titres(), QStringList({"a", "c", "b"}));
    EXPECT_EQ(colonnes.TitreChoisi(), "c");
    colonnes.Monter();
    colonnes.Monter();
    EXPECT_EQ(colonnes.Titres(), QStringList({"c", "a", "b"})) << "the first goes no higher";
    colonnes.Descendre();
    EXPECT_EQ(colonnes.Titres(), QStringList({"a", "c", "b"}));
    colonnes.Choisir(3);
    colonnes.Descendre();
    EXPECT_EQ(colonnes.Titres(), QStringList({"a", "c", "b"})) << "the last goes no lower";
    EXPECT_EQ(colonnes.DependanteChoisie(), 0) << "a move chooses none where none was chosen";
}

TEST_F(ColonnesDeCategorieTest, TheDependantChoiceJumpsToTheMovedColumn)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b", "c", "d"});
    colonnes.Dependant = true;
    colonnes.ChoisirDependante(1);
    colonnes.Monter();
    EXPECT_EQ(colonnes.DependanteChoisie(), 3) << "it was on a, and d moved";
    colonnes.Choisir(1);
    colonnes.Descendre();
    EXPECT_EQ(colonnes.Dependante(), 2);
    colonnes.Choisir(1);
    colonnes.Monter();
    EXPECT_EQ(colonnes.Dependante(), 2) << "a move that cannot be made moves no choice";
}

TEST_F(ColonnesDeCategorieTest, TheDependantChoiceStaysWhenItsColumnIsRenamed)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b"});
    colonnes.ChoisirDependante(2);
    colonnes.Renommer("autre");
    EXPECT_EQ(colonnes.DependanteChoisie(), 2);
}

TEST_F(ColonnesDeCategorieTest, TheDependantChoiceFollowsItsColumnAndGoesWithIt)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b", "c", "d"});
    colonnes.ChoisirDependante(2);
    reponses.Preparer(RepOui);
    colonnes.Supprimer();
    EXPECT_EQ(colonnes.DependanteChoisie(), 2);
    colonnes.Choisir(1);
    reponses.Preparer(RepOui);
    colonnes.Supprimer();
    EXPECT_EQ(colonnes.DependanteChoisie(), 1) << "still b";
    colonnes.Choisir(1);
    reponses.Preparer(RepOui);
    colonnes.Supprimer();
    EXPECT_EQ(colonnes.DependanteChoisie(), 0);
}

TEST_F(ColonnesDeCategorieTest, WithoutTheBoxThereIsNoDependantColumn)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b"});
    colonnes.ChoisirDependante(2);
    EXPECT_EQ(colonnes.Dependante(), 0);
    colonnes.Dependant = true;
    EXPECT_EQ(colonnes.Dependante(), 2);
    colonnes.ChoisirDependante(3);
    EXPECT_EQ(colonnes.Dependante(), 0) << "there is no such column";
}

TEST_F(ColonnesDeCategorieTest, TheChecksTellTheFirstThatIsMissing)
{
    const auto premier = [this](ColonnesDeCategorie& colonnes) {
        const qsizetype avant = reponses.Affiches().size();
        const bool bon = colonnes.Verifier();
        EXPECT_EQ(reponses.Affiches().size(), avant + (bon ? 0 : 1));
        if (bon)
            return QString();
        EXPECT_EQ(reponses.Affiches().last().genre, MsgOk);
        EXPECT_EQ(reponses.Affiches().last().titre, "");
        return reponses.Cles().last() + ' ' + reponses.Affiches().last().message.texte;
    };
    ColonnesDeCategorie colonnes;
    colonnes.Dependant = true;
    EXPECT_EQ(premier(colonnes), "msg53 Une Colonne n'a pas de nom, donnez lui un nom ou supprimer là avant de "
                                 "poursuivre");
    reponses.Preparer(RepOui);
    colonnes.Supprimer();
    EXPECT_EQ(premier(colonnes), "msg54 Il faut au moins une colone !");
    colonnes.Ajouter();
    colonnes.Renommer("Titre");
    EXPECT_EQ(premier(colonnes), "msg55 La colone dependante n'a pas de nom");
    colonnes.ChoisirDependante(1);
    EXPECT_EQ(premier(colonnes), "");
    colonnes.ChoisirDependante(0);
    colonnes.Dependant = false;
    EXPECT_EQ(premier(colonnes), "");
}

TEST_F(ColonnesDeCategorieTest, AnEmptyTitleInTheMiddleIsMissedToo)
{
    ColonnesDeCategorie colonnes = Colonnes({"a", "b", "c"});
    colonnes.Choisir(2);
    colonnes.Renommer("");
    EXPECT_FALSE(colonnes.Verifier());
    EXPECT_EQ(reponses.Cles(), QStringList({"msg53"}));
}

TEST(ColonnesDeCategorie, OtherTitlesTakeThePlaceOfAllColumns)
{
    ColonnesDeCategorie colonnes;
    EXPECT_FALSE(colonnes.ADesTitres());
    colonnes.Renommer("Pays");
    EXPECT_TRUE(colonnes.ADesTitres());
    colonnes.Enchainer();
    colonnes.Dependant = true;
    colonnes.ChoisirDependante(1);
    colonnes.Remplacer({"Auteur", "Titre"});
    EXPECT_EQ(colonnes.Titres(), QStringList({"Auteur", "Titre"}));
    EXPECT_EQ(colonnes.Choisie(), 1);
    EXPECT_EQ(colonnes.DependanteChoisie(), 0);
    EXPECT_TRUE(colonnes.Dependant);
    colonnes.Choisir(2);
    EXPECT_EQ(colonnes.Nombre(), 2) << "the last one is not one that goes by itself";
}
