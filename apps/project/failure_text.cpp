// SPDX-License-Identifier: MIT
#include "project/failure_text.h"

#include <new>

#include <wx/translation.h>

#include "media/media_error.h"
#include "media/media_error_text.h"
#include "project/file_error.h"
#include "project/path_text.h"
#include "project/project_error.h"

wxString FailureText(std::exception_ptr const &failure) {
  try {
    std::rethrow_exception(failure);
  } catch (MediaError const &error) {
    if (error.Problem() == MediaProblem::Cancelled) return {};
    return MediaErrorText(error);
  } catch (ProjectError const &error) {
    return ProjectErrorText(error);
  } catch (FileError const &error) {
    return FileErrorText(error);
  } catch (std::bad_alloc const &) {
    return wxGetTranslation("There is not enough memory.");
  } catch (std::exception const &error) {
    return TextOfPath(error.what());
  }
}
