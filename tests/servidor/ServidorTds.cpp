#include "kvdatosart/tests/servidor/ServidorTds.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/schema/Esquema.h"
#include "kvdatosart/schema/Lotes.h"

namespace kv::prueba {
namespace {

// Kinds of message and of what they are made of, by their names in the protocol.
enum Clase : unsigned { SqlBatch = 1, Rpc = 3, TransactionManager = 14, Login7 = 16, PreLogin = 18 };
enum Marca : unsigned { ReturnStatus = 0x79, ColMetadata = 0x81, Error = 0xAA, ReturnValue = 0xAC, LoginAck = 0xAD };
enum MarcaFin : unsigned { Row = 0xD1, EnvChange = 0xE3, Done = 0xFD, DoneProc = 0xFE };
enum Estado : unsigned { SinMas = 0, ConFallo = 2, ConCuenta = 16 };
enum PeticionTransaccion : unsigned { kEmpezar = 5, kConfirmar = 7, kDeshacer = 8 };

// What a session is brought to. A real server refuses a misspelt setting, or does without one in silence.
constexpr std::string_view kAjustes =
    "SET QUOTED_IDENTIFIER ON SET ANSI_NULLS ON SET ANSI_PADDING ON SET ANSI_WARNINGS ON SET ANSI_NULL_DFLT_ON ON"
    " SET CONCAT_NULL_YIELDS_NULL ON SET CURSOR_CLOSE_ON_COMMIT OFF SET NOCOUNT OFF SET IMPLICIT_TRANSACTIONS OFF"
    " SET XACT_ABORT OFF SET TEXTSIZE 2147483647 SET DATEFORMAT dmy";
constexpr std::string_view kPrueba =
    "SELECT CAST('05/03/2001' AS datetime) AS Dia, CAST('13/02/2001' AS datetime) AS Otro, N'ñ €' AS Texto";
constexpr std::string_view kOrdenPorDebajo = "SELECT set_config('datestyle', 'ISO, DMY', 'false')";

constexpr std::size_t kPaquete = 4096;
constexpr std::size_t kCabecera = 8;

MensajeTds Fin(MensajeTds mensaje, Estado estado = SinMas, std::uint64_t filas = 0, MarcaFin marca = Done) {
    return mensaje.Numero(marca, 1).Numero(estado, 2).Numero(0xC1, 2).Numero(filas, 8);
}

MensajeTds Fallo(const RuntimeError& error, MarcaFin marca) {
    MensajeTds contenido;
    contenido.Numero(static_cast<std::uint32_t>(error.numero), 4).Octetos({"\x01\x10", 2}).Texto(error.descripcion, 2);
    contenido.Texto("servidor", 1).Texto("", 1).Numero(1, 4);
    return Fin(MensajeTds().Parte(Error, contenido), ConFallo, 0, marca);
}

MensajeTds Bienvenida() {
    MensajeTds intercalacion;
    intercalacion.Octetos({"\x07\x05", 2}).Octetos(kIntercalacion).Numero(0, 1);
    MensajeTds version;
    version.Octetos({"\x01\x74\x00\x00\x04", 5}).Texto("Servidor de pruebas", 1).Octetos({"\x0B\x00\x08\x34", 4});
    return Fin(MensajeTds().Parte(EnvChange, intercalacion).Parte(LoginAck, version));
}

bool Recibir(int cliente, unsigned& clase, std::string& peticion) {
    peticion.clear();
    for (;;) {
        unsigned char cabecera[kCabecera];
        if (recv(cliente, cabecera, kCabecera, MSG_WAITALL) != static_cast<ssize_t>(kCabecera)) return false;
        clase = cabecera[0];
        std::string trozo((static_cast<std::size_t>(cabecera[2]) << 8U | cabecera[3]) - kCabecera, '\0');
        // To wait for nothing would be to wait for what comes next.
        if (!trozo.empty() &&
            recv(cliente, trozo.data(), trozo.size(), MSG_WAITALL) != static_cast<ssize_t>(trozo.size()))
            return false;
        peticion += trozo;
        if ((cabecera[1] & 1U) != 0) return true;
    }
}

void Enviar(int cliente, std::string_view respuesta) {
    MensajeTds paquetes;
    for (unsigned orden = 1; orden == 1 || !respuesta.empty(); ++orden) {
        const std::string_view trozo = respuesta.substr(0, kPaquete - kCabecera);
        respuesta.remove_prefix(trozo.size());
        const std::size_t largo = trozo.size() + kCabecera;
        paquetes.Numero(4, 1).Numero(respuesta.empty() ? 1 : 0, 1).Numero(largo >> 8U, 1).Numero(largo, 1);
        paquetes.Numero(0, 2).Numero(orden, 1).Numero(0, 1).Octetos(trozo);
    }
    const std::string& bytes = paquetes.Bytes();
    if (send(cliente, bytes.data(), bytes.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("el cliente no espera la respuesta");
}

}  // namespace

ServidorTds::ServidorTds(std::shared_ptr<Connection> base, Fechas fechas) : base_(std::move(base)), fechas_(fechas) {
    sockaddr_in direccion{};
    direccion.sin_family = AF_INET;
    direccion.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof direccion;
    auto* nombre = reinterpret_cast<sockaddr*>(&direccion);  // NOLINT: as the system's calls want it.
    escucha_ = socket(AF_INET, SOCK_STREAM, 0);
    if (bind(escucha_, nombre, largo) != 0 || listen(escucha_, 1) != 0 || getsockname(escucha_, nombre, &largo) != 0)
        throw std::runtime_error("no hay puerto para el servidor");
    puerto_ = ntohs(direccion.sin_port);
    hilo_ = std::thread([this] { Atender(); });
}

ServidorTds::~ServidorTds() {
    shutdown(escucha_, SHUT_RDWR);
    hilo_.join();
    close(escucha_);
}

std::string ServidorTds::Cadena(const std::string& controlador) const {
    return "Driver=" + controlador + ";Server=127.0.0.1;Port=" + std::to_string(puerto_) +
           ";TDS_Version=7.4;Database=tienda;UID=usuario;PWD=clave";
}

void ServidorTds::Atender() {
    for (int cliente = 0; (cliente = accept(escucha_, nullptr, nullptr)) >= 0; close(cliente)) {
        try {
            unsigned clase = 0;
            for (std::string peticion; Recibir(cliente, clase, peticion);)
                Enviar(cliente, Contestar(clase, peticion).Bytes());
        } catch (const std::exception& error) {
            queja_ = error.what();
        }
    }
}

MensajeTds ServidorTds::Contestar(unsigned clase, std::string_view peticion) {
    // Its version, and that it has no encryption.
    if (clase == PreLogin)
        return MensajeTds().Octetos({"\0\0\x0B\0\x06\x01\0\x11\0\x01\xFF\x0B\0\x08\x34\0\0\x02", 18});
    if (clase == Login7) return Bienvenida();
    LecturaTds lectura(peticion);
    // What stands before every request says its own size.
    lectura.Octetos(lectura.Numero(4) - 4);
    try {
        if (clase == SqlBatch) return Ejecutar(lectura.Texto(lectura.Quedan() / 2));
        if (clase == Rpc) return Llamar(lectura);
        if (clase == TransactionManager) return CambiarTransaccion(lectura);
    } catch (const RuntimeError& error) {
        return Fallo(error, clase == Rpc ? DoneProc : Done);
    }
    throw std::runtime_error("mensaje de clase " + std::to_string(clase));
}

MensajeTds ServidorTds::Ejecutar(const std::string& texto) {
    if (texto == kPrueba || texto == kOrdenPorDebajo) return ProbarFechas(texto);
    if (texto == "ROLLBACK TRANSACTION") return Fin(Terminar(kDeshacer));
    if (texto == "IF @@TRANCOUNT = 0 BEGIN TRANSACTION") return Fin(enTransaccion_ ? MensajeTds() : Empezar({}));
    // What the embedded database is asked instead: its tables count as made once they hold something.
    static const std::map<std::string, std::string> kEquivalentes = {
        {"SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE = 'BASE TABLE'",
         "SELECT Nombre AS TABLE_NAME FROM Empresas"},
        {"SELECT 'ñ€' AS Texto WHERE 'a' = 'A'", "SELECT 'ñ€' AS Texto"},
        {"SELECT OBJECT_ID('Empresas', 'U') AS Tabla", "SELECT MAX(Codigo) AS Tabla FROM Empresas"}};
    static const std::vector<std::string_view> kLotes = LotesDe(EsquemaSqlServer());
    const auto equivalente = kEquivalentes.find(texto);
    const std::string& consulta = equivalente == kEquivalentes.end() ? texto : equivalente->second;
    if (!consulta.starts_with("SELECT") && !consulta.starts_with(" SELECT")) {
        if (texto == kAjustes || std::find(kLotes.begin(), kLotes.end(), texto) != kLotes.end()) return Fin({});
        return Fin({}, ConCuenta, static_cast<std::uint64_t>(base_->EjecutarContando(texto)));
    }
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *base_, consulta);
    std::vector<std::string> columnas;
    for (std::int32_t i = 0; i < rs->NumeroCampos(); ++i) columnas.emplace_back(rs->NombreCampo(i));
    Filas filas;
    for (; !rs->Eof(); rs->MoveNext()) {
        std::vector<Valor>& fila = filas.emplace_back();
        for (const std::string& columna : columnas) fila.push_back(rs->Fields(columna).Value());
    }
    return Tabla(texto, columnas, filas);
}

MensajeTds ServidorTds::ProbarFechas(const std::string& texto) {
    if (texto == kOrdenPorDebajo && fechas_ == Fechas::PorDebajo) fechas_ = Fechas::Obedece;
    if (fechas_ == Fechas::PorDebajo) throw RuntimeError(242, "servidor", "no hay mes 13");
    const Fecha dia = fechas_ == Fechas::Obedece ? Fecha::DeAmd(2001, 3, 5) : Fecha::DeAmd(2001, 5, 3);
    return Tabla(texto, {"Dia", "Otro", "Texto"}, {{dia, Fecha::DeAmd(2001, 2, 13), "ñ €"}});
}

TipoTds ServidorTds::TipoDeColumna(const std::string& texto, const std::string& columna, std::size_t posicion,
                                   const Filas& filas) const {
    for (const Token& token : TokensDe(texto)) {
        const auto tabla = objetos_.find(std::string(token.texto));
        if (tabla == objetos_.end()) continue;
        for (const ColumnaTds& una : tabla->second.columnas)
            if (MismoNombre(una.nombre, columna)) return una.tipo;
    }
    for (const std::vector<Valor>& fila : filas)
        if (!EsNulo(fila[posicion])) return fila[posicion].index();
    return 0;
}

MensajeTds ServidorTds::Tabla(const std::string& texto, const std::vector<std::string>& columnas,
                              const Filas& filas) const {
    MensajeTds mensaje;
    std::vector<TipoTds> tipos;
    mensaje.Numero(ColMetadata, 1).Numero(columnas.size(), 2);
    for (const std::string& columna : columnas) {
        tipos.push_back(TipoDeColumna(texto, columna, tipos.size(), filas));
        mensaje.Numero(0, 4).Numero(9, 2);
        EscribirTipo(mensaje, tipos.back());
        mensaje.Texto(columna, 1);
    }
    for (const std::vector<Valor>& fila : filas) {
        mensaje.Numero(Row, 1);
        for (std::size_t i = 0; i < tipos.size(); ++i) EscribirValor(mensaje, tipos[i], fila[i]);
    }
    return Fin(mensaje, ConCuenta, filas.size());
}

MensajeTds ServidorTds::Llamar(LecturaTds& lectura) {
    const auto procedimiento = base_->CrearCommand();
    std::string& nombre = procedimiento->CommandText = lectura.Texto(lectura.Numero(2));
    procedimiento->CommandType = CommandType::adCmdStoredProc;
    lectura.Numero(2);
    const auto declarados = objetos_.find(nombre);
    if (declarados == objetos_.end()) throw std::runtime_error("no hay procedimiento " + nombre);
    // The embedded database goes by the values, not by the declared types.
    for (const ColumnaTds& uno : declarados->second.columnas)
        procedimiento->Parameters.Append(
            uno.nombre, DataType::adCurrency,
            uno.sale ? ParameterDirection::adParamOutput : ParameterDirection::adParamInput, 0,
            LeerParametro(lectura, uno));
    if (lectura.Quedan() != 0) throw std::runtime_error(nombre + ": sobran parámetros");
    procedimiento->Execute(CommandType::adCmdStoredProc);
    MensajeTds mensaje;
    mensaje.Numero(ReturnStatus, 1).Numero(0, 4);
    unsigned orden = 0;
    for (const Parameter& uno : procedimiento->Parameters) {
        if (uno.Direction == ParameterDirection::adParamOutput) {
            mensaje.Numero(ReturnValue, 1).Numero(orden, 2).Texto(uno.Name, 1).Numero(1, 7);
            EscribirTipo(mensaje, kDecimal);
            EscribirValor(mensaje, kDecimal, uno.Value);
        }
        ++orden;
    }
    return Fin(mensaje, SinMas, 0, DoneProc);
}

MensajeTds ServidorTds::CambiarTransaccion(LecturaTds& lectura) {
    const auto peticion = static_cast<unsigned>(lectura.Numero(2));
    if (peticion == kEmpezar) return Fin(Empezar({}));
    const MensajeTds mensaje = Terminar(peticion);
    // The driver may ask for the next transaction in the same message.
    lectura.Texto(lectura.Numero(1));
    return Fin(lectura.Numero(1) != 0 ? Empezar(mensaje) : mensaje);
}

MensajeTds ServidorTds::Empezar(MensajeTds mensaje) {
    base_->BeginTrans();
    enTransaccion_ = true;
    // The number by which the driver has to know it.
    return mensaje.Parte(EnvChange, MensajeTds().Numero(8, 1).Octetos({"\x08\1\0\0\0\0\0\0\0\0", 10}));
}

MensajeTds ServidorTds::Terminar(unsigned peticion) {
    if (peticion == kConfirmar)
        base_->CommitTrans();
    else if (peticion == kDeshacer)
        base_->RollbackTrans();
    else
        throw std::runtime_error("petición de transacción " + std::to_string(peticion));
    enTransaccion_ = false;
    const auto fin = MensajeTds().Numero(peticion + 2, 1).Octetos({"\0\x08\1\0\0\0\0\0\0\0", 10});
    return MensajeTds().Parte(EnvChange, fin);
}

}  // namespace kv::prueba
