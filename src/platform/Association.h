// The association of catalogue files with the program: a double click on a ".qrt" file opens it here.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class Association
{
public:
    virtual ~Association() = default;
    /// Makes the association. Failures are not looked at: the program works without it.
    virtual void Enregistrer() = 0;
};

/// The association of a freedesktop.org desktop, for one user: a desktop entry, the MIME type
/// application/x-zelvane-qrt and the icons. Files are written only where they differ from what they should hold.
class AssociationBureau : public Association
{
public:
    struct Lieux
    {
        QString donnees;    ///< the user's data folder ($XDG_DATA_HOME)
        QString executable; ///< full path of the program to start
        QString icone;      ///< the document icon, "IcoFile.ico"; its PNG images are used
    };
    explicit AssociationBureau(const Lieux& lieux) : m_lieux(lieux) {}
    void Enregistrer() override;

private:
    Lieux m_lieux;
};

/// An image of an icon file, in PNG form, of cote x cote pixels.
struct ImageIcone
{
    int cote;
    QByteArray png;
};

/// The square PNG images of an icon file (".ico"); images in other forms are left out, and so is what is damaged.
QList<ImageIcone> ImagesPng(const QByteArray& ico);
