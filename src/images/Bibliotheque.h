// The images of a category: plain files in the document's folder, under the names that the user gave them. How one gets
// in, what it is called there, and how it leaves. Folders have their trailing separator.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// Runs between two steps of something that may take long: the program lets its events run there.
using EntreDeuxPas = std::function<void()>;

/// True for a name with the extension "gif", "jpg", "jpeg" or "bmp", in any case.
bool EstNomDImage(const QString& nom);

/// The images of a folder, directories with such a name included, in the order in which the system tells them. Left out
/// are names that no entry could keep (see NomTenable).
QStringList ListerImages(const QString& dossier, const EntreDeuxPas& entreDeuxNoms = {});

/// The name under which an entry can keep the file `chemin`: its name without the folder, with "_" in place of "|" and
/// control characters, which would end the name in the catalogue's text.
QString NomTenable(const QString& chemin);

/// The first name of "0" and `nom`, "1" and `nom` ... that nothing in the folder has: 0photo.jpg. Who knows that lower
/// numbers are taken gives the first one to try.
QString NomLibre(const QString& dossier, const QString& nom, const EntreDeuxPas& entreDeuxEssais = {},
                 int premierNumero = 0);

enum class SiLeFichierExiste { Echouer, Remplacer };

/// Copies a file. False when `source` is no file that can be read or `cible` cannot be written; `cible` is then as it
/// was. A file replaced by itself stays.
bool CopierImage(const QString& source, const QString& cible, SiLeFichierExiste siExiste);

/// Answers to the question whether an image is to be deleted from the category.
enum ReponseSupprImg {
    SupprImgOui = 1,     ///< this one; ask again next time
    SupprImgOuiTous = 2, ///< this one and all that follow
    SupprImgNon = 3,     ///< keep this one; ask again next time
    SupprImgNonTous = 4, ///< keep this one and all that follow
};

/// Asks about the image with this full path; returns a ReponseSupprImg.
using QuestionSupprImg = std::function<int(const QString& chemin)>;

/// Deletes an image, a read-only one too. `mode` is the last answer, 0 before the first, and shared by the calls of one
/// batch; unless it decides already, it becomes the answer of `demander`. False when the image stays because the answer
/// says so, or when there is no such file: nothing is asked then. An attempt that fails counts as done.
bool SupprimerImage(const QString& chemin, int& mode, const QuestionSupprImg& demander);
