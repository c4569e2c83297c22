// The commands of lending, for the selected entries of a document.
#pragma once

class QrtClass;

/// Asks who borrows, adds him to the contact list and marks the entries as lent; in a category with a dependant column
/// perhaps also those that depend on them.
void MarquerPrete(QrtClass& document);
/// Marks the entries as returned, once the user has confirmed it.
void MarquerRendu(QrtClass& document);
