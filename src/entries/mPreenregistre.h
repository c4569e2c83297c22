// Edits the pre-recorded texts of a category.
#pragma once

class QrtClass;

/// Shows them in the dialog frmPreEnregistre. When the user validates it, all columns take what stands there, and the
/// document has changed; else nothing has.
void GererPreEnregistres(QrtClass& document);
