// The command that starts a new document, through its dialog.
#include "entries/NouvelleCategorie.h"

#include "base/DossiersTemp.h"
#include "entries/DialogueDeCategorie.h"
#include "support/CadreDeTest.h"
#include "support/FileDeReponses.h"
#include "support/GardeModale.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class NouvelleCategorieTest : public testing::Test
{
protected:
    void Lancer(void (*commande)(Cadre&), const std::function<void(const Dialogue&)>& geste)
    {
        const GardeModale garde([&](QWidget& fenetre) {
            EXPECT_EQ(fenetre.objectName(), "frmAddCategorie2");
            geste(Dialogue(fenetre));
            fenetre.close();
        });
        commande(cadre);
    }

    FileDeReponses reponses;
    CadreDeTest cadre;
};

} // namespace

TEST_F(NouvelleCategorieTest, TheDialogMakesTheCategory)
{
    for (const auto commande : {NouvelleCategorie, NouveauQrt}) {
        Lancer(commande, [](const Dialogue& d) {
            d.TaperTitres({"Titre", "Artiste"});
            d.ChoisirDependante(2);
            d.Cliquer("btAjouter");
        });
        ASSERT_EQ(cadre.fenetres.size(), 1U);
        const Categorie& doc = cadre.fenetres.front()->myqrt;
        EXPECT_EQ(doc.ColCount(), 3);
        EXPECT_EQ(doc.MyLV->ColumnHeaders(2).Text(), "Artiste");
        EXPECT_EQ(doc.dependantcol, 2);
        EXPECT_EQ(doc.IndexColPrete, 3);
        EXPECT_EQ(cadre.TitresDesOnglets(), QStringList({"Nouveau"}));
        cadre.fenetres.front()->Decharger();
    }
}

TEST_F(NouvelleCategorieTest, CancellingMakesNoDocument)
{
    Lancer(NouvelleCategorie, [](const Dialogue& d) {
        d.Taper(u"Titre"_s);
        d.Cliquer("Annuler");
    });
    EXPECT_EQ(cadre.creees, 0);
    EXPECT_TRUE(cadre.onglets.isEmpty());
}

TEST_F(NouvelleCategorieTest, NothingRemainsAfterAMissingDependantColumn)
{
    Lancer(NouvelleCategorie, [](const Dialogue& d) {
        d.Taper(u"Titre"_s);
        d.cbDependant().setChecked(true);
        d.Cliquer("btAjouter");
    });
    EXPECT_EQ(reponses.Cles(), QStringList({"msg55"}));
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_TRUE(cadre.onglets.isEmpty());
    EXPECT_EQ(DossiersTempTenus(), QStringList());
}

TEST_F(NouvelleCategorieTest, EachDialogStartsAnew)
{
    Lancer(NouvelleCategorie, [](const Dialogue& d) {
        d.TaperTitres({"Titre", "Artiste"});
        d.ChoisirDependante(2);
        d.Cliquer("btAjouter");
    });
    Lancer(NouvelleCategorie, [](const Dialogue& d) {
        EXPECT_EQ(d.Titres(), QStringList({""}));
        EXPECT_FALSE(d.cbDependant().isChecked());
    });
}
