// The sheet on which the user arranges what is printed: a page in miniature, in millimetres. Everything on paper stands
// where it stands on the sheet, times a factor.
#pragma once

#include "output/MesureDeTexte.h"

#include <QRectF>
#include <QString>

#include <vector>

struct Feuille
{
    double largeur = 84;
    double hauteur = 118.8;
    double EchelleX() const { return LargeurDuPapier / largeur; }
    double EchelleY() const { return HauteurDuPapier / hauteur; }

    struct Libelle
    {
        double gauche;
        double haut;
        PoliceDePage police;
        QString texte;
    };
    Libelle NomCat{8.996, 4.763, {QStringLiteral("Arial Black"), 6, false}, {}};
    Libelle Page{76.2, 4.763, {QStringLiteral("Arial"), 6, false}, {}};
    QRectF Icone{4.233, 4.233, 4.233, 4.233};
    bool iconeMontree = false;

    struct Colonne
    {
        QString titre;
        double largeur;
    };
    double gaucheDeLV1 = 4.233;
    double hautDeLV1 = 10.583;
    double largeurDeLV1 = 74.348;
    double hauteurDeLV1 = 101.865;
    PoliceDePage policeDeLV1{QStringLiteral("Arial"), 6, false};
    std::vector<Colonne> colonnes; ///< one of no width is not printed
};
