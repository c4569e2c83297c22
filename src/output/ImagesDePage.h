// The images that stand beside an exported page, in its folder "images".
#pragma once

#include <QString>

class ImagesDePage
{
public:
    /// `source`: the folder of the category's images, `page`: that of the page, both with a trailing separator; an
    /// empty one is the current folder.
    ImagesDePage(const QString& source, const QString& page)
        : m_source(source), m_cible(page + QStringLiteral("images/"))
    {
    }

    /// Makes the folder where there is none.
    void CreerDossier() const;
    /// Puts the image `nom` there. One that lies there already stays, and one that the category lacks is passed over.
    void Copier(const QString& nom);
    /// How many images of the category are not there now.
    int Perdues() const { return m_perdues; }

private:
    QString m_source;
    QString m_cible;
    int m_perdues = 0;
};
