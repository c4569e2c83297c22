// A frame and windows without a screen, for tests of the flows.
#pragma once

#include "base/DossiersTemp.h"
#include "catalogue/documents/Cadre.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <memory>

struct PanneauDeTest : PanneauAttente
{
    bool visible = false;
    void Montrer(bool oui) override { visible = oui; }
};

class CadreDeTest;

class FenetreDeTest : public FenetreDocument
{
public:
    FenetreDeTest(CadreDeTest& cadre, const QString& tag) : m_cadre(cadre)
    {
        Tag = tag;
        myqrt.wait = &wait;
        myqrt.Ouvrir = &fOuvrir;
    }

    QString Caption() const override { return m_titre; }
    void SetCaption(const QString& titre) override { m_titre = titre; }
    void Decharger() override;
    void RedrawAll(bool miseEnPage) override { ++(miseEnPage ? misesEnPage : rafraichissements); }
    void MontrerImage(const QString& fichier) override { image = fichier; }
    void RendreVisible(int ligne) override { ligneVisible = ligne; }
    void mAfficherImages_Click() override { images = !images; }
    void mModifierCategorie_Click() override { commandes << QStringLiteral("mModifierCategorie"); }
    void mModifierCommentaires_Click() override;
    void mRechercher_Click() override { commandes << QStringLiteral("mRechercher"); }

    int rafraichissements = 0; ///< refreshes without the layout
    int misesEnPage = 0;       ///< refreshes with it
    QString image;             ///< the file that the images panel shows; empty for none
    int ligneVisible = 0;      ///< entry that the table was last scrolled to
    QStringList commandes;     ///< the commands asked for, by name

    std::function<void()> auDecharger; ///< what happens instead when it is unloaded

    bool images = true;
    MyLV& table = myqrt.Table;
    PanneauDeTest wait;
    PanneauDeTest fOuvrir;

private:
    CadreDeTest& m_cadre;
    QString m_titre;
};

/// The windows have the tags "a1", "a2" and so on; a window that goes takes its tab along.
class CadreDeTest : public Cadre
{
public:
    struct Onglet
    {
        QString cle, titre;
        bool operator==(const Onglet&) const = default;
    };

    std::vector<FenetreDocument*> Documents() const override
    {
        std::vector<FenetreDocument*> liste;
        for (const auto& fenetre : fenetres)
            liste.push_back(fenetre.get());
        return liste;
    }
    FenetreDocument* FenetreActive() const override { return active; }
    FenetreDocument& NouvelleFenetre() override
    {
        ++creees;
        fenetres.push_back(std::make_unique<FenetreDeTest>(*this, QStringLiteral("a%1").arg(creees)));
        fenetres.back()->fOuvrir.visible = true;
        active = fenetres.back().get();
        return *active;
    }
    void AmenerDevant(FenetreDocument& fenetre) override { active = &fenetre; }
    void AjouterOnglet(const FenetreDocument& fenetre) override { onglets.append({fenetre.Tag, fenetre.Caption()}); }
    void MettreTitreOnglet(const FenetreDocument& fenetre, const QString& titre) override
    {
        for (Onglet& onglet : onglets) {
            if (onglet.cle == fenetre.Tag)
                onglet.titre = titre;
        }
    }
    QStringList TitresDesOnglets() const
    {
        QStringList titres;
        for (const Onglet& onglet : onglets)
            titres.append(onglet.titre);
        return titres;
    }

    std::vector<std::unique_ptr<FenetreDeTest>> fenetres;
    QList<Onglet> onglets;
    FenetreDocument* active = nullptr;
    int creees = 0;
    QStringList decharges;                               ///< the tags of the windows that were told to go
    std::function<void(FenetreDeTest&)> auxCommentaires; ///< what a user does when a window shows its comments
};

inline void FenetreDeTest::mModifierCommentaires_Click()
{
    commandes << QStringLiteral("mModifierCommentaires");
    if (m_cadre.auxCommentaires)
        m_cadre.auxCommentaires(*this);
}

inline void FenetreDeTest::Decharger()
{
    m_cadre.decharges << Tag;
    if (auDecharger)
        return auDecharger();
    FermerDossier();
    m_cadre.onglets.removeIf([this](const CadreDeTest::Onglet& onglet) { return onglet.cle == Tag; });
    std::erase_if(m_cadre.fenetres, [this](const auto& fenetre) { return fenetre.get() == this; });
}
