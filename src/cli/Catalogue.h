// A catalogue opened for one command.
#pragma once

#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "cli/Menage.h"

#include <QString>

#include <memory>
#include <optional>

class CatalogueOuvert
{
public:
    /// Opens the file into a temporary folder. Nothing when it does not exist, is no catalogue, or cannot be read: the
    /// message was shown.
    static std::unique_ptr<CatalogueOuvert> Ouvrir(const QString& chemin, Etendue etendue = Etendue::Tout);

    Categorie doc;
    int type = 0; ///< what TypeFichier told: 1 or 2

private:
    CatalogueOuvert();

    DossierPassager m_base; // one of this process alone, so that two commands never share a folder
};
