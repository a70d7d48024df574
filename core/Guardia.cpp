#include "core/Guardia.h"

ErrorPrograma errorDesdeExcepcion(std::exception_ptr p)
{
    try {
        std::rethrow_exception(p);
    } catch (const ErrorPrograma& e) {
        return e;
    } catch (const std::exception& e) {
        return ErrorPrograma(-1, QString::fromLocal8Bit(e.what()));
    } catch (...) {
        return ErrorPrograma(-1, QStringLiteral("Error desconocido"));
    }
}
