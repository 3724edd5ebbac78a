-- Tables and stored procedures of the production database. Can be run again: a table that exists stays as it is, with
-- its indexes, the procedures get their body anew and keep their permissions. Batches end with GO. Nothing here is newer
-- than SQL Server 2012. Days are datetime at midnight: older providers and drivers hand a date column over as text.
-- The database's collation must not tell letter case apart and must keep accents and the euro sign in varchar, as
-- Modern_Spanish_CI_AS does: the suite names columns in mixed case and writes its texts without the N prefix.

SET ANSI_NULLS ON
GO
SET QUOTED_IDENTIFIER ON
GO
SET ANSI_PADDING ON
GO

-- The companies and their settings.
IF OBJECT_ID('Empresas', 'U') IS NULL
CREATE TABLE Empresas (
    Codigo smallint NOT NULL,
    Nombre varchar(60) NOT NULL CONSTRAINT DF_Empresas_Nombre DEFAULT (''),
    TarifasxFechas bit NOT NULL CONSTRAINT DF_Empresas_TarifasxFechas DEFAULT (0),
    Cod_EmpresaArticulos smallint NOT NULL CONSTRAINT DF_Empresas_Cod_EmpresaArticulos DEFAULT (0),
    Cod_EmpresaClientes smallint NOT NULL CONSTRAINT DF_Empresas_Cod_EmpresaClientes DEFAULT (0),
    Cod_EmpresaExtra smallint NOT NULL CONSTRAINT DF_Empresas_Cod_EmpresaExtra DEFAULT (0),
    Tarifa smallint NOT NULL CONSTRAINT DF_Empresas_Tarifa DEFAULT (0),
    VenderSinStock bit NOT NULL CONSTRAINT DF_Empresas_VenderSinStock DEFAULT (0),
    CosteUltimaCompra bit NOT NULL CONSTRAINT DF_Empresas_CosteUltimaCompra DEFAULT (0),
    DecPrecios smallint NOT NULL CONSTRAINT DF_Empresas_DecPrecios DEFAULT (2),
    DecImportes smallint NOT NULL CONSTRAINT DF_Empresas_DecImportes DEFAULT (2),
    DecCostes smallint NOT NULL CONSTRAINT DF_Empresas_DecCostes DEFAULT (4),
    CaptionFamilia1 varchar(30) NOT NULL CONSTRAINT DF_Empresas_CaptionFamilia1 DEFAULT (''),
    CaptionFamilia2 varchar(30) NOT NULL CONSTRAINT DF_Empresas_CaptionFamilia2 DEFAULT (''),
    CaptionFamilia3 varchar(30) NOT NULL CONSTRAINT DF_Empresas_CaptionFamilia3 DEFAULT (''),
    CONSTRAINT PK_Empresas PRIMARY KEY CLUSTERED (Codigo)
)
GO

-- Numbered parameters of a company.
IF OBJECT_ID('Empresas_Parametros', 'U') IS NULL
CREATE TABLE Empresas_Parametros (
    Cod_Empresa smallint NOT NULL,
    Numero smallint NOT NULL,
    Valor varchar(50) NULL,
    CONSTRAINT PK_Empresas_Parametros PRIMARY KEY CLUSTERED (Cod_Empresa, Numero)
)
GO

-- Article catalogue.
IF OBJECT_ID('Articulos', 'U') IS NULL
BEGIN
CREATE TABLE Articulos (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Descripcion varchar(60) NOT NULL CONSTRAINT DF_Articulos_Descripcion DEFAULT (''),
    Familia_1 smallint NOT NULL CONSTRAINT DF_Articulos_Familia_1 DEFAULT (0),
    Familia_2 smallint NOT NULL CONSTRAINT DF_Articulos_Familia_2 DEFAULT (0),
    Familia_3 smallint NOT NULL CONSTRAINT DF_Articulos_Familia_3 DEFAULT (0),
    UxCaja money NOT NULL CONSTRAINT DF_Articulos_UxCaja DEFAULT (1),
    Largo money NOT NULL CONSTRAINT DF_Articulos_Largo DEFAULT (0),
    Ancho money NOT NULL CONSTRAINT DF_Articulos_Ancho DEFAULT (0),
    Altura money NOT NULL CONSTRAINT DF_Articulos_Altura DEFAULT (0),
    Control_NSeries bit NOT NULL CONSTRAINT DF_Articulos_Control_NSeries DEFAULT (0),
    DStock bit NOT NULL CONSTRAINT DF_Articulos_DStock DEFAULT (1),
    TipoImpuesto tinyint NOT NULL CONSTRAINT DF_Articulos_TipoImpuesto DEFAULT (1),
    CtaVentas varchar(15) NOT NULL CONSTRAINT DF_Articulos_CtaVentas DEFAULT (''),
    CtaDVentas varchar(15) NOT NULL CONSTRAINT DF_Articulos_CtaDVentas DEFAULT (''),
    Bloqueado bit NOT NULL CONSTRAINT DF_Articulos_Bloqueado DEFAULT (0),
    MsjAlerta varchar(200) NOT NULL CONSTRAINT DF_Articulos_MsjAlerta DEFAULT (''),
    Envase int NOT NULL CONSTRAINT DF_Articulos_Envase DEFAULT (0),
    RAEE money NOT NULL CONSTRAINT DF_Articulos_RAEE DEFAULT (0),
    ECORAEE money NOT NULL CONSTRAINT DF_Articulos_ECORAEE DEFAULT (0),
    FidelizacionPuntos int NOT NULL CONSTRAINT DF_Articulos_FidelizacionPuntos DEFAULT (0),
    Control_Caducidad bit NOT NULL CONSTRAINT DF_Articulos_Control_Caducidad DEFAULT (0),
    TipoRep smallint NOT NULL CONSTRAINT DF_Articulos_TipoRep DEFAULT (0),
    Control_Lotes bit NOT NULL CONSTRAINT DF_Articulos_Control_Lotes DEFAULT (0),
    Peso money NOT NULL CONSTRAINT DF_Articulos_Peso DEFAULT (0),
    MotivoBaja smallint NOT NULL CONSTRAINT DF_Articulos_MotivoBaja DEFAULT (0),
    BajoPedido bit NOT NULL CONSTRAINT DF_Articulos_BajoPedido DEFAULT (0),
    TipoImpuesto2 tinyint NOT NULL CONSTRAINT DF_Articulos_TipoImpuesto2 DEFAULT (0),
    UnidadesDecimales bit NOT NULL CONSTRAINT DF_Articulos_UnidadesDecimales DEFAULT (0),
    PadreVenta int NOT NULL CONSTRAINT DF_Articulos_PadreVenta DEFAULT (0),
    Tipo tinyint NOT NULL CONSTRAINT DF_Articulos_Tipo DEFAULT (0),
    FUCompra datetime NOT NULL CONSTRAINT DF_Articulos_FUCompra DEFAULT ('19000101'),
    FUVenta datetime NOT NULL CONSTRAINT DF_Articulos_FUVenta DEFAULT ('19000101'),
    PU_Compra float NOT NULL CONSTRAINT DF_Articulos_PU_Compra DEFAULT (0),
    DF_PU_Compra float NOT NULL CONSTRAINT DF_Articulos_DF_PU_Compra DEFAULT (0),
    Mod_Ficha bit NOT NULL CONSTRAINT DF_Articulos_Mod_Ficha DEFAULT (0),
    CONSTRAINT PK_Articulos PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Articulos_Familias ON Articulos (Cod_Empresa, Familia_1, Familia_2, Familia_3, Descripcion)
END
GO

-- Tariffs and what they are called.
IF OBJECT_ID('Tarifas', 'U') IS NULL
CREATE TABLE Tarifas (
    Cod_Empresa smallint NOT NULL,
    Codigo smallint NOT NULL,
    Descripcion varchar(40) NOT NULL CONSTRAINT DF_Tarifas_Descripcion DEFAULT (''),
    CONSTRAINT PK_Tarifas PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
GO

-- Current price of an article in a tariff.
IF OBJECT_ID('Articulos_Tarifas', 'U') IS NULL
CREATE TABLE Articulos_Tarifas (
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Cod_Tarifa smallint NOT NULL,
    Pvp money NOT NULL CONSTRAINT DF_Articulos_Tarifas_Pvp DEFAULT (0),
    CONSTRAINT PK_Articulos_Tarifas PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Articulo, Cod_Tarifa)
)
GO

-- Current price of a variant in a tariff.
IF OBJECT_ID('Articulos_Tarifas_C', 'U') IS NULL
CREATE TABLE Articulos_Tarifas_C (
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    Cod_Tarifa smallint NOT NULL,
    Pvp money NOT NULL CONSTRAINT DF_Articulos_Tarifas_C_Pvp DEFAULT (0),
    CONSTRAINT PK_Articulos_Tarifas_C PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa)
)
GO

-- Scheduled price changes. Actualizado: it takes part; Borrado: it was withdrawn.
IF OBJECT_ID('Tarifas_Modificacion', 'U') IS NULL
CREATE TABLE Tarifas_Modificacion (
    Codigo int NOT NULL,
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Cod_Tarifa smallint NOT NULL,
    Pvp money NOT NULL CONSTRAINT DF_Tarifas_Modificacion_Pvp DEFAULT (0),
    Fecha_Entrada datetime NOT NULL,
    Actualizado bit NOT NULL CONSTRAINT DF_Tarifas_Modificacion_Actualizado DEFAULT (0),
    Borrado bit NOT NULL CONSTRAINT DF_Tarifas_Modificacion_Borrado DEFAULT (0),
    CONSTRAINT PK_Tarifas_Modificacion PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Fecha_Entrada, Codigo)
)
GO

-- Scheduled price changes of variants.
IF OBJECT_ID('Tarifas_Modificacion_C', 'U') IS NULL
CREATE TABLE Tarifas_Modificacion_C (
    Codigo int NOT NULL,
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    Cod_Tarifa smallint NOT NULL,
    Pvp money NOT NULL CONSTRAINT DF_Tarifas_Modificacion_C_Pvp DEFAULT (0),
    Fecha_Entrada datetime NOT NULL,
    Actualizado bit NOT NULL CONSTRAINT DF_Tarifas_Modificacion_C_Actualizado DEFAULT (0),
    Borrado bit NOT NULL CONSTRAINT DF_Tarifas_Modificacion_C_Borrado DEFAULT (0),
    CONSTRAINT PK_Tarifas_Modificacion_C PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa, Fecha_Entrada, Codigo)
)
GO

-- Warehouses.
IF OBJECT_ID('Almacenes', 'U') IS NULL
CREATE TABLE Almacenes (
    Cod_Empresa smallint NOT NULL,
    Codigo smallint NOT NULL,
    Nombre varchar(40) NOT NULL CONSTRAINT DF_Almacenes_Nombre DEFAULT (''),
    FUCompra datetime NOT NULL CONSTRAINT DF_Almacenes_FUCompra DEFAULT ('19000101'),
    FUVenta datetime NOT NULL CONSTRAINT DF_Almacenes_FUVenta DEFAULT ('19000101'),
    CONSTRAINT PK_Almacenes PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
GO

-- Stock, cost and locks of an article in a warehouse.
IF OBJECT_ID('Almacen_Articulos', 'U') IS NULL
CREATE TABLE Almacen_Articulos (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Ubicacion varchar(30) NOT NULL CONSTRAINT DF_Almacen_Articulos_Ubicacion DEFAULT (''),
    Stock_Actual float NOT NULL CONSTRAINT DF_Almacen_Articulos_Stock_Actual DEFAULT (0),
    Stock_Peso float NOT NULL CONSTRAINT DF_Almacen_Articulos_Stock_Peso DEFAULT (0),
    Stock_Minimo float NOT NULL CONSTRAINT DF_Almacen_Articulos_Stock_Minimo DEFAULT (0),
    Stock_Optimo float NOT NULL CONSTRAINT DF_Almacen_Articulos_Stock_Optimo DEFAULT (0),
    Pend_Recibir float NOT NULL CONSTRAINT DF_Almacen_Articulos_Pend_Recibir DEFAULT (0),
    Pend_Servir float NOT NULL CONSTRAINT DF_Almacen_Articulos_Pend_Servir DEFAULT (0),
    Stock_MiniCompra float NOT NULL CONSTRAINT DF_Almacen_Articulos_Stock_MiniCompra DEFAULT (0),
    Categoria varchar(10) NOT NULL CONSTRAINT DF_Almacen_Articulos_Categoria DEFAULT (''),
    Cobertura smallint NOT NULL CONSTRAINT DF_Almacen_Articulos_Cobertura DEFAULT (0),
    Plazo_Reposicion smallint NOT NULL CONSTRAINT DF_Almacen_Articulos_Plazo_Reposicion DEFAULT (0),
    PU_Compra float NOT NULL CONSTRAINT DF_Almacen_Articulos_PU_Compra DEFAULT (0),
    P_Medio float NOT NULL CONSTRAINT DF_Almacen_Articulos_P_Medio DEFAULT (0),
    Rotacion float NOT NULL CONSTRAINT DF_Almacen_Articulos_Rotacion DEFAULT (0),
    FUlt_Compra datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_FUlt_Compra DEFAULT ('19000101'),
    FUlt_Venta datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_FUlt_Venta DEFAULT ('19000101'),
    FUlt_Inv datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_FUlt_Inv DEFAULT ('19000101'),
    FIni_Existencias datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_FIni_Existencias DEFAULT ('19000101'),
    FFin_Existencias datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_FFin_Existencias DEFAULT ('19000101'),
    F_Dormido datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_F_Dormido DEFAULT ('19000101'),
    Bloqueo bit NOT NULL CONSTRAINT DF_Almacen_Articulos_Bloqueo DEFAULT (0),
    BloqueoVenta bit NOT NULL CONSTRAINT DF_Almacen_Articulos_BloqueoVenta DEFAULT (0),
    ArticuloGenerico bit NOT NULL CONSTRAINT DF_Almacen_Articulos_ArticuloGenerico DEFAULT (0),
    DF_PU_Compra float NOT NULL CONSTRAINT DF_Almacen_Articulos_DF_PU_Compra DEFAULT (0),
    DF_P_Medio float NOT NULL CONSTRAINT DF_Almacen_Articulos_DF_P_Medio DEFAULT (0),
    Desglosa_Pack bit NOT NULL CONSTRAINT DF_Almacen_Articulos_Desglosa_Pack DEFAULT (0),
    CONSTRAINT PK_Almacen_Articulos PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Almacen, Cod_Articulo)
)
GO

-- Stock and cost of a variant in a warehouse.
IF OBJECT_ID('Almacen_Articulos_C', 'U') IS NULL
CREATE TABLE Almacen_Articulos_C (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    CualidadY tinyint NOT NULL,
    Stock_Actual float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_Stock_Actual DEFAULT (0),
    Stock_Peso float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_Stock_Peso DEFAULT (0),
    Pend_Recibir float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_Pend_Recibir DEFAULT (0),
    Pend_Servir float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_Pend_Servir DEFAULT (0),
    Stock_MiniCompra float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_Stock_MiniCompra DEFAULT (0),
    PU_Compra float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_PU_Compra DEFAULT (0),
    P_Medio float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_P_Medio DEFAULT (0),
    FUlt_Compra datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_C_FUlt_Compra DEFAULT ('19000101'),
    FUlt_Venta datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_C_FUlt_Venta DEFAULT ('19000101'),
    FIni_Existencias datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_C_FIni_Existencias DEFAULT ('19000101'),
    FFin_Existencias datetime NOT NULL CONSTRAINT DF_Almacen_Articulos_C_FFin_Existencias DEFAULT ('19000101'),
    Bloqueo bit NOT NULL CONSTRAINT DF_Almacen_Articulos_C_Bloqueo DEFAULT (0),
    DF_PU_Compra float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_DF_PU_Compra DEFAULT (0),
    DF_P_Medio float NOT NULL CONSTRAINT DF_Almacen_Articulos_C_DF_P_Medio DEFAULT (0),
    CONSTRAINT PK_Almacen_Articulos_C PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY)
)
GO

-- Stock by location inside a warehouse.
IF OBJECT_ID('Almacen_Articulos_Ubic', 'U') IS NULL
CREATE TABLE Almacen_Articulos_Ubic (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Ubic1 varchar(10) NOT NULL,
    Ubic2 varchar(10) NOT NULL,
    Ubic3 varchar(10) NOT NULL,
    Ubic4 varchar(10) NOT NULL,
    Ubic5 varchar(10) NOT NULL,
    Stock_Actual float NOT NULL CONSTRAINT DF_Almacen_Articulos_Ubic_Stock_Actual DEFAULT (0),
    CONSTRAINT PK_Almacen_Articulos_Ubic PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubic1, Ubic2, Ubic3, Ubic4, Ubic5)
)
GO

-- Customers.
IF OBJECT_ID('Clientes', 'U') IS NULL
BEGIN
CREATE TABLE Clientes (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Nombre varchar(60) NOT NULL CONSTRAINT DF_Clientes_Nombre DEFAULT (''),
    Nombre_Comercial varchar(60) NOT NULL CONSTRAINT DF_Clientes_Nombre_Comercial DEFAULT (''),
    Direccion varchar(80) NOT NULL CONSTRAINT DF_Clientes_Direccion DEFAULT (''),
    Localidad varchar(50) NOT NULL CONSTRAINT DF_Clientes_Localidad DEFAULT (''),
    Provincia varchar(30) NOT NULL CONSTRAINT DF_Clientes_Provincia DEFAULT (''),
    Pais varchar(30) NOT NULL CONSTRAINT DF_Clientes_Pais DEFAULT (''),
    EMail varchar(80) NOT NULL CONSTRAINT DF_Clientes_EMail DEFAULT (''),
    Telefono varchar(20) NOT NULL CONSTRAINT DF_Clientes_Telefono DEFAULT (''),
    MotivoBaja smallint NOT NULL CONSTRAINT DF_Clientes_MotivoBaja DEFAULT (0),
    F_Razon varchar(60) NOT NULL CONSTRAINT DF_Clientes_F_Razon DEFAULT (''),
    F_Via varchar(10) NOT NULL CONSTRAINT DF_Clientes_F_Via DEFAULT (''),
    F_Direccion varchar(80) NOT NULL CONSTRAINT DF_Clientes_F_Direccion DEFAULT (''),
    F_Numero varchar(10) NOT NULL CONSTRAINT DF_Clientes_F_Numero DEFAULT (''),
    F_Escalera varchar(5) NOT NULL CONSTRAINT DF_Clientes_F_Escalera DEFAULT (''),
    F_Piso varchar(5) NOT NULL CONSTRAINT DF_Clientes_F_Piso DEFAULT (''),
    F_Puerta varchar(5) NOT NULL CONSTRAINT DF_Clientes_F_Puerta DEFAULT (''),
    F_Cp varchar(10) NOT NULL CONSTRAINT DF_Clientes_F_Cp DEFAULT (''),
    F_Localidad varchar(50) NOT NULL CONSTRAINT DF_Clientes_F_Localidad DEFAULT (''),
    F_Provincia varchar(30) NOT NULL CONSTRAINT DF_Clientes_F_Provincia DEFAULT (''),
    F_Pais varchar(30) NOT NULL CONSTRAINT DF_Clientes_F_Pais DEFAULT (''),
    F_eMail varchar(80) NOT NULL CONSTRAINT DF_Clientes_F_eMail DEFAULT (''),
    F_Web varchar(80) NOT NULL CONSTRAINT DF_Clientes_F_Web DEFAULT (''),
    IntraCom bit NOT NULL CONSTRAINT DF_Clientes_IntraCom DEFAULT (0),
    Portes bit NOT NULL CONSTRAINT DF_Clientes_Portes DEFAULT (0),
    Divisas smallint NOT NULL CONSTRAINT DF_Clientes_Divisas DEFAULT (0),
    Ruta smallint NOT NULL CONSTRAINT DF_Clientes_Ruta DEFAULT (0),
    Zona smallint NOT NULL CONSTRAINT DF_Clientes_Zona DEFAULT (0),
    Actividad smallint NOT NULL CONSTRAINT DF_Clientes_Actividad DEFAULT (0),
    Agencia_Transp smallint NOT NULL CONSTRAINT DF_Clientes_Agencia_Transp DEFAULT (0),
    padre int NOT NULL CONSTRAINT DF_Clientes_padre DEFAULT (0),
    Almacen_Asoc smallint NOT NULL CONSTRAINT DF_Clientes_Almacen_Asoc DEFAULT (0),
    Tarifa_Pvp smallint NOT NULL CONSTRAINT DF_Clientes_Tarifa_Pvp DEFAULT (0),
    Tarifa_Promoc smallint NOT NULL CONSTRAINT DF_Clientes_Tarifa_Promoc DEFAULT (0),
    Bloqueado bit NOT NULL CONSTRAINT DF_Clientes_Bloqueado DEFAULT (0),
    Fecha_Bloq datetime NULL,
    Motivo_Bloq varchar(100) NOT NULL CONSTRAINT DF_Clientes_Motivo_Bloq DEFAULT (''),
    Representante smallint NOT NULL CONSTRAINT DF_Clientes_Representante DEFAULT (0),
    Vendedor smallint NOT NULL CONSTRAINT DF_Clientes_Vendedor DEFAULT (0),
    Cobrador smallint NOT NULL CONSTRAINT DF_Clientes_Cobrador DEFAULT (0),
    Fecha_Especial datetime NULL,
    Desc_Especial varchar(60) NOT NULL CONSTRAINT DF_Clientes_Desc_Especial DEFAULT (''),
    Contravale bit NOT NULL CONSTRAINT DF_Clientes_Contravale DEFAULT (0),
    Mtto bit NOT NULL CONSTRAINT DF_Clientes_Mtto DEFAULT (0),
    Copias_Fra tinyint NOT NULL CONSTRAINT DF_Clientes_Copias_Fra DEFAULT (1),
    Mensaje varchar(200) NOT NULL CONSTRAINT DF_Clientes_Mensaje DEFAULT (''),
    Tipo_Impresion tinyint NOT NULL CONSTRAINT DF_Clientes_Tipo_Impresion DEFAULT (0),
    Tipo_Venta tinyint NOT NULL CONSTRAINT DF_Clientes_Tipo_Venta DEFAULT (0),
    Cod_Albaranes smallint NOT NULL CONSTRAINT DF_Clientes_Cod_Albaranes DEFAULT (0),
    Periodo_Fact tinyint NOT NULL CONSTRAINT DF_Clientes_Periodo_Fact DEFAULT (0),
    Fact_Indep bit NOT NULL CONSTRAINT DF_Clientes_Fact_Indep DEFAULT (0),
    Cta_Cliente varchar(15) NOT NULL CONSTRAINT DF_Clientes_Cta_Cliente DEFAULT (''),
    Cta_Retenciones varchar(15) NOT NULL CONSTRAINT DF_Clientes_Cta_Retenciones DEFAULT (''),
    Cta_Efectos varchar(15) NOT NULL CONSTRAINT DF_Clientes_Cta_Efectos DEFAULT (''),
    Cta_Ventas varchar(15) NOT NULL CONSTRAINT DF_Clientes_Cta_Ventas DEFAULT (''),
    Cta_DVentas varchar(15) NOT NULL CONSTRAINT DF_Clientes_Cta_DVentas DEFAULT (''),
    Cod_FPago smallint NOT NULL CONSTRAINT DF_Clientes_Cod_FPago DEFAULT (0),
    DiaPago_1 tinyint NOT NULL CONSTRAINT DF_Clientes_DiaPago_1 DEFAULT (0),
    DiaPago_2 tinyint NOT NULL CONSTRAINT DF_Clientes_DiaPago_2 DEFAULT (0),
    DiaCierre_1 tinyint NOT NULL CONSTRAINT DF_Clientes_DiaCierre_1 DEFAULT (0),
    DiaCierre_2 tinyint NOT NULL CONSTRAINT DF_Clientes_DiaCierre_2 DEFAULT (0),
    TipoVenc tinyint NOT NULL CONSTRAINT DF_Clientes_TipoVenc DEFAULT (0),
    Dias_Venc smallint NOT NULL CONSTRAINT DF_Clientes_Dias_Venc DEFAULT (0),
    Tipo_Carta tinyint NOT NULL CONSTRAINT DF_Clientes_Tipo_Carta DEFAULT (0),
    Grupo_Dto smallint NOT NULL CONSTRAINT DF_Clientes_Grupo_Dto DEFAULT (0),
    Dto_1 money NOT NULL CONSTRAINT DF_Clientes_Dto_1 DEFAULT (0),
    Dto_2 money NOT NULL CONSTRAINT DF_Clientes_Dto_2 DEFAULT (0),
    Dto_3 money NOT NULL CONSTRAINT DF_Clientes_Dto_3 DEFAULT (0),
    Dto_4 money NOT NULL CONSTRAINT DF_Clientes_Dto_4 DEFAULT (0),
    Dto_5 money NOT NULL CONSTRAINT DF_Clientes_Dto_5 DEFAULT (0),
    Dto_ProntoPago money NOT NULL CONSTRAINT DF_Clientes_Dto_ProntoPago DEFAULT (0),
    Retenciones money NOT NULL CONSTRAINT DF_Clientes_Retenciones DEFAULT (0),
    Rec_Financiero money NOT NULL CONSTRAINT DF_Clientes_Rec_Financiero DEFAULT (0),
    Cta_Bancaria varchar(24) NOT NULL CONSTRAINT DF_Clientes_Cta_Bancaria DEFAULT (''),
    Cta_Remesas varchar(24) NOT NULL CONSTRAINT DF_Clientes_Cta_Remesas DEFAULT (''),
    Credito money NOT NULL CONSTRAINT DF_Clientes_Credito DEFAULT (0),
    Riesgo money NOT NULL CONSTRAINT DF_Clientes_Riesgo DEFAULT (0),
    Observ varchar(500) NOT NULL CONSTRAINT DF_Clientes_Observ DEFAULT (''),
    MsgAlerta varchar(200) NOT NULL CONSTRAINT DF_Clientes_MsgAlerta DEFAULT (''),
    Serie varchar(5) NOT NULL CONSTRAINT DF_Clientes_Serie DEFAULT (''),
    MaxPuntos int NOT NULL CONSTRAINT DF_Clientes_MaxPuntos DEFAULT (0),
    FAlta datetime NULL,
    FBaja datetime NULL,
    FUVenta datetime NULL,
    FUCobro datetime NULL,
    Alternativo1 varchar(50) NOT NULL CONSTRAINT DF_Clientes_Alternativo1 DEFAULT (''),
    Alternativo2 varchar(50) NOT NULL CONSTRAINT DF_Clientes_Alternativo2 DEFAULT (''),
    Alternativo3 varchar(50) NOT NULL CONSTRAINT DF_Clientes_Alternativo3 DEFAULT (''),
    Alternativo4 varchar(50) NOT NULL CONSTRAINT DF_Clientes_Alternativo4 DEFAULT (''),
    Alternativo5 varchar(50) NOT NULL CONSTRAINT DF_Clientes_Alternativo5 DEFAULT (''),
    TipoCliente smallint NOT NULL CONSTRAINT DF_Clientes_TipoCliente DEFAULT (0),
    EnvioEDI bit NOT NULL CONSTRAINT DF_Clientes_EnvioEDI DEFAULT (0),
    Cad_Nivel_1 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_1 DEFAULT (0),
    Cad_Nivel_2 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_2 DEFAULT (0),
    Cad_Nivel_3 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_3 DEFAULT (0),
    Cad_Nivel_4 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_4 DEFAULT (0),
    Cad_Nivel_5 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_5 DEFAULT (0),
    Cad_Nivel_6 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_6 DEFAULT (0),
    Cad_Nivel_7 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_7 DEFAULT (0),
    Cad_Nivel_8 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_8 DEFAULT (0),
    Cad_Nivel_9 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_9 DEFAULT (0),
    Cad_Nivel_10 smallint NOT NULL CONSTRAINT DF_Clientes_Cad_Nivel_10 DEFAULT (0),
    Factura_PedirLote bit NOT NULL CONSTRAINT DF_Clientes_Factura_PedirLote DEFAULT (0),
    Factura_PedirVto bit NOT NULL CONSTRAINT DF_Clientes_Factura_PedirVto DEFAULT (0),
    CONSTRAINT PK_Clientes PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Clientes_Nombre ON Clientes (Cod_Empresa, Nombre)
CREATE INDEX IX_Clientes_Codigo ON Clientes (Codigo)
CREATE INDEX IX_Clientes_Padre ON Clientes (Cod_Empresa, padre)
END
GO

-- Telephones of a customer.
IF OBJECT_ID('Clientes_Telefonos', 'U') IS NULL
CREATE TABLE Clientes_Telefonos (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo tinyint NOT NULL,
    Numero varchar(20) NOT NULL CONSTRAINT DF_Clientes_Telefonos_Numero DEFAULT (''),
    CONSTRAINT PK_Clientes_Telefonos PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Cliente, Codigo)
)
GO

-- Contacts of a customer.
IF OBJECT_ID('Clientes_Contactos', 'U') IS NULL
CREATE TABLE Clientes_Contactos (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo smallint NOT NULL,
    Nombre varchar(60) NOT NULL CONSTRAINT DF_Clientes_Contactos_Nombre DEFAULT (''),
    CONSTRAINT PK_Clientes_Contactos PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Cliente, Codigo)
)
GO

-- Installations of a customer.
IF OBJECT_ID('Clientes_Instalaciones', 'U') IS NULL
CREATE TABLE Clientes_Instalaciones (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo smallint NOT NULL,
    Nombre varchar(60) NOT NULL CONSTRAINT DF_Clientes_Instalaciones_Nombre DEFAULT (''),
    CONSTRAINT PK_Clientes_Instalaciones PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Cliente, Codigo)
)
GO

-- Employees of a customer.
IF OBJECT_ID('Clientes_Empleados', 'U') IS NULL
CREATE TABLE Clientes_Empleados (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo smallint NOT NULL,
    Nombre varchar(60) NOT NULL CONSTRAINT DF_Clientes_Empleados_Nombre DEFAULT (''),
    CONSTRAINT PK_Clientes_Empleados PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Cliente, Codigo)
)
GO

-- Notes on a customer, some of them pending until they are due.
IF OBJECT_ID('Clientes_Notas', 'U') IS NULL
BEGIN
CREATE TABLE Clientes_Notas (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo smallint NOT NULL,
    Texto varchar(200) NOT NULL CONSTRAINT DF_Clientes_Notas_Texto DEFAULT (''),
    Pendiente bit NOT NULL CONSTRAINT DF_Clientes_Notas_Pendiente DEFAULT (0),
    Vencimiento datetime NOT NULL CONSTRAINT DF_Clientes_Notas_Vencimiento DEFAULT ('19000101'),
    CONSTRAINT PK_Clientes_Notas PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Cliente, Codigo)
)
CREATE INDEX IX_Clientes_Notas_Pendientes ON Clientes_Notas (Cod_Empresa, Pendiente, Vencimiento)
END
GO

-- Loyalty points that a customer won or spent.
IF OBJECT_ID('Clientes_Puntos', 'U') IS NULL
CREATE TABLE Clientes_Puntos (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo int NOT NULL,
    Fecha datetime NOT NULL CONSTRAINT DF_Clientes_Puntos_Fecha DEFAULT ('19000101'),
    Puntos int NOT NULL CONSTRAINT DF_Clientes_Puntos_Puntos DEFAULT (0),
    CONSTRAINT PK_Clientes_Puntos PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Cliente, Codigo)
)
GO

-- Customer groups. Act: 0 marks a group whose discounts changed.
IF OBJECT_ID('Clientes_Grp_Descuentos', 'U') IS NULL
CREATE TABLE Clientes_Grp_Descuentos (
    Cod_Empresa smallint NOT NULL,
    Codigo smallint NOT NULL,
    Descripcion varchar(40) NOT NULL CONSTRAINT DF_Clientes_Grp_Descuentos_Descripcion DEFAULT (''),
    Act bit NOT NULL CONSTRAINT DF_Clientes_Grp_Descuentos_Act DEFAULT (0),
    CONSTRAINT PK_Clientes_Grp_Descuentos PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
GO

-- Discounts of a group by family or article and by range of units; 0 to 0 is any quantity.
IF OBJECT_ID('Clientes_Grp_Descuentos_Fam', 'U') IS NULL
BEGIN
CREATE TABLE Clientes_Grp_Descuentos_Fam (
    Cod_Empresa smallint NOT NULL,
    Cod_Grupo smallint NOT NULL,
    Nivel tinyint NOT NULL,
    Familia_1 smallint NOT NULL,
    Familia_2 smallint NOT NULL,
    Familia_3 smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Unidades_Min money NOT NULL,
    Unidades_Max money NOT NULL,
    Descuento float NOT NULL CONSTRAINT DF_Clientes_Grp_Descuentos_Fam_Descuento DEFAULT (0),
    Tipo_Descuento tinyint NOT NULL CONSTRAINT DF_Clientes_Grp_Descuentos_Fam_Tipo_Descuento DEFAULT (0),
    CONSTRAINT PK_Clientes_Grp_Descuentos_Fam PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Grupo, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Unidades_Min,
        Unidades_Max)
)
CREATE INDEX IX_Clientes_Grp_Descuentos_Fam_Articulo
    ON Clientes_Grp_Descuentos_Fam (Cod_Empresa, Cod_Grupo, Nivel, Cod_Articulo, Familia_1, Familia_2, Familia_3,
        Unidades_Min, Unidades_Max, Descuento)
END
GO

-- Discounts of a customer by family or article.
IF OBJECT_ID('Descuentos_Familias', 'U') IS NULL
BEGIN
CREATE TABLE Descuentos_Familias (
    Codigo int NOT NULL CONSTRAINT DF_Descuentos_Familias_Codigo DEFAULT (0),
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Nivel tinyint NOT NULL,
    Familia_1 smallint NOT NULL,
    Familia_2 smallint NOT NULL,
    Familia_3 smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Descuento float NOT NULL CONSTRAINT DF_Descuentos_Familias_Descuento DEFAULT (0),
    Tipo_Descuento tinyint NOT NULL CONSTRAINT DF_Descuentos_Familias_Tipo_Descuento DEFAULT (0),
    CONSTRAINT PK_Descuentos_Familias PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Cliente, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo)
)
CREATE INDEX IX_Descuentos_Familias_Articulo
    ON Descuentos_Familias (Cod_Empresa, Cod_Cliente, Nivel, Cod_Articulo, Familia_1, Familia_2, Familia_3, Descuento)
END
GO

-- Agreements of a chain node for an article. A last day of 31/12/2050 is open-ended.
IF OBJECT_ID('Clientes_Cadenas_ConvArt', 'U') IS NULL
CREATE TABLE Clientes_Cadenas_ConvArt (
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Cod_Nivel1 smallint NOT NULL,
    Cod_Nivel2 smallint NOT NULL,
    Cod_Nivel3 smallint NOT NULL,
    Cod_Nivel4 smallint NOT NULL,
    Cod_Nivel5 smallint NOT NULL,
    Cod_Nivel6 smallint NOT NULL,
    Cod_Nivel7 smallint NOT NULL,
    Cod_Nivel8 smallint NOT NULL,
    Cod_Nivel9 smallint NOT NULL,
    Cod_Nivel10 smallint NOT NULL,
    FechaEntrada datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaEntrada
        DEFAULT (CONVERT(date, GETDATE())),
    FechaSalida datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaSalida DEFAULT ('20501231'),
    PBase money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_PBase DEFAULT (0),
    TDto1 smallint NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_TDto1 DEFAULT (0),
    ImporteDto1 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_ImporteDto1 DEFAULT (0),
    CantidadDto1 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_CantidadDto1 DEFAULT (0),
    Aplicar_Cascada1 bit NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_Aplicar_Cascada1 DEFAULT (0),
    FechaEntrada1 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaEntrada1 DEFAULT ('19000101'),
    FechaSalida1 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaSalida1 DEFAULT ('20501231'),
    TDto2 smallint NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_TDto2 DEFAULT (0),
    ImporteDto2 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_ImporteDto2 DEFAULT (0),
    CantidadDto2 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_CantidadDto2 DEFAULT (0),
    Aplicar_Cascada2 bit NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_Aplicar_Cascada2 DEFAULT (0),
    FechaEntrada2 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaEntrada2 DEFAULT ('19000101'),
    FechaSalida2 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaSalida2 DEFAULT ('20501231'),
    TDto3 smallint NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_TDto3 DEFAULT (0),
    ImporteDto3 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_ImporteDto3 DEFAULT (0),
    CantidadDto3 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_CantidadDto3 DEFAULT (0),
    Aplicar_Cascada3 bit NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_Aplicar_Cascada3 DEFAULT (0),
    FechaEntrada3 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaEntrada3 DEFAULT ('19000101'),
    FechaSalida3 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaSalida3 DEFAULT ('20501231'),
    TDto4 smallint NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_TDto4 DEFAULT (0),
    ImporteDto4 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_ImporteDto4 DEFAULT (0),
    CantidadDto4 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_CantidadDto4 DEFAULT (0),
    Aplicar_Cascada4 bit NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_Aplicar_Cascada4 DEFAULT (0),
    FechaEntrada4 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaEntrada4 DEFAULT ('19000101'),
    FechaSalida4 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaSalida4 DEFAULT ('20501231'),
    TDto5 smallint NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_TDto5 DEFAULT (0),
    ImporteDto5 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_ImporteDto5 DEFAULT (0),
    CantidadDto5 money NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_CantidadDto5 DEFAULT (0),
    Aplicar_Cascada5 bit NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_Aplicar_Cascada5 DEFAULT (0),
    FechaEntrada5 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaEntrada5 DEFAULT ('19000101'),
    FechaSalida5 datetime NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_FechaSalida5 DEFAULT ('20501231'),
    Dto_Padre bit NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_Dto_Padre DEFAULT (0),
    Nivel smallint NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_Nivel DEFAULT (0),
    Enviado smallint NOT NULL CONSTRAINT DF_Clientes_Cadenas_ConvArt_Enviado DEFAULT (0),
    CONSTRAINT PK_Clientes_Cadenas_ConvArt PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6,
        Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada)
)
GO

-- Price conventions: an amount off the base article's first tariff, or an amount on its purchase price.
IF OBJECT_ID('Clientes_Convenio_Pvp', 'U') IS NULL
CREATE TABLE Clientes_Convenio_Pvp (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    Cod_ArticuloB int NOT NULL CONSTRAINT DF_Clientes_Convenio_Pvp_Cod_ArticuloB DEFAULT (0),
    PUC money NOT NULL CONSTRAINT DF_Clientes_Convenio_Pvp_PUC DEFAULT (0),
    Pvp money NOT NULL CONSTRAINT DF_Clientes_Convenio_Pvp_Pvp DEFAULT (0),
    CONSTRAINT PK_Clientes_Convenio_Pvp PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Cliente, Cod_Articulo)
)
GO

-- Prices agreed with a customer for an article between two days, both inclusive.
IF OBJECT_ID('Clientes_Art_PVP', 'U') IS NULL
BEGIN
CREATE TABLE Clientes_Art_PVP (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    Fecha_Inicial datetime NOT NULL,
    Fecha_Final datetime NOT NULL,
    PVP float NOT NULL CONSTRAINT DF_Clientes_Art_PVP_PVP DEFAULT (0),
    CONSTRAINT PK_Clientes_Art_PVP PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final)
)
CREATE INDEX IX_Clientes_Art_PVP_Articulo ON Clientes_Art_PVP (Cod_Empresa, Cod_Articulo, Cod_Cliente, PVP)
END
GO

-- Sales of an article to a customer by warehouse and day.
IF OBJECT_ID('Clientes_Articulos', 'U') IS NULL
BEGIN
CREATE TABLE Clientes_Articulos (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    Fecha datetime NOT NULL,
    Unidades money NOT NULL CONSTRAINT DF_Clientes_Articulos_Unidades DEFAULT (0),
    Importe_PVP money NOT NULL CONSTRAINT DF_Clientes_Articulos_Importe_PVP DEFAULT (0),
    Importe_Costo money NOT NULL CONSTRAINT DF_Clientes_Articulos_Importe_Costo DEFAULT (0),
    CONSTRAINT PK_Clientes_Articulos PRIMARY KEY CLUSTERED (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, Fecha)
)
CREATE INDEX IX_Clientes_Articulos_Cliente ON Clientes_Articulos (Cod_Empresa, Cod_Cliente)
END
GO

-- Sales of an article to a customer by warehouse and day, kept apart for transfer.
IF OBJECT_ID('Clientes_Articulos_Tx', 'U') IS NULL
CREATE TABLE Clientes_Articulos_Tx (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    Fecha datetime NOT NULL,
    Unidades money NOT NULL CONSTRAINT DF_Clientes_Articulos_Tx_Unidades DEFAULT (0),
    Importe_PVP money NOT NULL CONSTRAINT DF_Clientes_Articulos_Tx_Importe_PVP DEFAULT (0),
    Importe_Costo money NOT NULL CONSTRAINT DF_Clientes_Articulos_Tx_Importe_Costo DEFAULT (0),
    CONSTRAINT PK_Clientes_Articulos_Tx PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, Fecha)
)
GO

-- Sales of a variant to a customer by warehouse and day.
IF OBJECT_ID('Clientes_Articulos_C', 'U') IS NULL
CREATE TABLE Clientes_Articulos_C (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    CualidadY tinyint NOT NULL,
    Fecha datetime NOT NULL,
    Unidades money NOT NULL CONSTRAINT DF_Clientes_Articulos_C_Unidades DEFAULT (0),
    Importe_PVP money NOT NULL CONSTRAINT DF_Clientes_Articulos_C_Importe_PVP DEFAULT (0),
    Importe_Costo money NOT NULL CONSTRAINT DF_Clientes_Articulos_C_Importe_Costo DEFAULT (0),
    CONSTRAINT PK_Clientes_Articulos_C PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, CualidadX, CualidadY, Fecha)
)
GO

-- Sales of a variant to a customer by warehouse and day, kept apart for transfer.
IF OBJECT_ID('Clientes_Articulos_C_Tx', 'U') IS NULL
CREATE TABLE Clientes_Articulos_C_Tx (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    CualidadY tinyint NOT NULL,
    Fecha datetime NOT NULL,
    Unidades money NOT NULL CONSTRAINT DF_Clientes_Articulos_C_Tx_Unidades DEFAULT (0),
    Importe_PVP money NOT NULL CONSTRAINT DF_Clientes_Articulos_C_Tx_Importe_PVP DEFAULT (0),
    Importe_Costo money NOT NULL CONSTRAINT DF_Clientes_Articulos_C_Tx_Importe_Costo DEFAULT (0),
    CONSTRAINT PK_Clientes_Articulos_C_Tx PRIMARY KEY CLUSTERED
        (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, CualidadX, CualidadY, Fecha)
)
GO

-- Invoices.
IF OBJECT_ID('Facturas', 'U') IS NULL
BEGIN
CREATE TABLE Facturas (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL CONSTRAINT DF_Facturas_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_Facturas_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_Facturas_Total DEFAULT (0),
    CONSTRAINT PK_Facturas PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Facturas_Cliente ON Facturas (Cod_Empresa, Cliente)
END
GO

-- Invoices of former years.
IF OBJECT_ID('Facturas_Ex', 'U') IS NULL
BEGIN
CREATE TABLE Facturas_Ex (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL CONSTRAINT DF_Facturas_Ex_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_Facturas_Ex_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_Facturas_Ex_Total DEFAULT (0),
    CONSTRAINT PK_Facturas_Ex PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Facturas_Ex_Cliente ON Facturas_Ex (Cod_Empresa, Cliente)
END
GO

-- Delivery notes; Factura_Codigo 0 is not yet invoiced.
IF OBJECT_ID('Albaranes_F', 'U') IS NULL
BEGIN
CREATE TABLE Albaranes_F (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL CONSTRAINT DF_Albaranes_F_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_Albaranes_F_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_Albaranes_F_Total DEFAULT (0),
    Factura_Codigo int NOT NULL CONSTRAINT DF_Albaranes_F_Factura_Codigo DEFAULT (0),
    CONSTRAINT PK_Albaranes_F PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Albaranes_F_Cliente ON Albaranes_F (Cod_Empresa, Cliente, Factura_Codigo, Total)
END
GO

-- Workshop delivery notes.
IF OBJECT_ID('AlbaranesST', 'U') IS NULL
BEGIN
CREATE TABLE AlbaranesST (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL CONSTRAINT DF_AlbaranesST_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_AlbaranesST_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_AlbaranesST_Total DEFAULT (0),
    CONSTRAINT PK_AlbaranesST PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_AlbaranesST_Cliente ON AlbaranesST (Cod_Empresa, Cliente)
END
GO

-- Workshop entries.
IF OBJECT_ID('Entradas_ST', 'U') IS NULL
BEGIN
CREATE TABLE Entradas_ST (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL CONSTRAINT DF_Entradas_ST_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_Entradas_ST_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_Entradas_ST_Total DEFAULT (0),
    CONSTRAINT PK_Entradas_ST PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Entradas_ST_Cliente ON Entradas_ST (Cod_Empresa, Cliente)
END
GO

-- Customer orders.
IF OBJECT_ID('Pedidos_Clientes', 'U') IS NULL
BEGIN
CREATE TABLE Pedidos_Clientes (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cod_Cliente int NOT NULL CONSTRAINT DF_Pedidos_Clientes_Cod_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_Pedidos_Clientes_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_Pedidos_Clientes_Total DEFAULT (0),
    CONSTRAINT PK_Pedidos_Clientes PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Pedidos_Clientes_Cliente ON Pedidos_Clientes (Cod_Empresa, Cod_Cliente)
END
GO

-- Quotations.
IF OBJECT_ID('Presup', 'U') IS NULL
BEGIN
CREATE TABLE Presup (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL CONSTRAINT DF_Presup_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_Presup_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_Presup_Total DEFAULT (0),
    CONSTRAINT PK_Presup PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Presup_Cliente ON Presup (Cod_Empresa, Cliente)
END
GO

-- Pro forma invoices.
IF OBJECT_ID('Proformas', 'U') IS NULL
BEGIN
CREATE TABLE Proformas (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL CONSTRAINT DF_Proformas_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_Proformas_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_Proformas_Total DEFAULT (0),
    CONSTRAINT PK_Proformas PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_Proformas_Cliente ON Proformas (Cod_Empresa, Cliente)
END
GO

-- Tickets of the points of sale.
IF OBJECT_ID('TPV_Tickets', 'U') IS NULL
BEGIN
CREATE TABLE TPV_Tickets (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL CONSTRAINT DF_TPV_Tickets_Cliente DEFAULT (0),
    Fecha datetime NOT NULL CONSTRAINT DF_TPV_Tickets_Fecha DEFAULT ('19000101'),
    Total money NOT NULL CONSTRAINT DF_TPV_Tickets_Total DEFAULT (0),
    CONSTRAINT PK_TPV_Tickets PRIMARY KEY CLUSTERED (Cod_Empresa, Codigo)
)
CREATE INDEX IX_TPV_Tickets_Cliente ON TPV_Tickets (Cod_Empresa, Cliente)
END
GO

-- Work table of loose labels, by customer only.
IF OBJECT_ID('Temp_EtiquetasSueltas_Clientes', 'U') IS NULL
CREATE TABLE Temp_EtiquetasSueltas_Clientes (
    Cod_Cliente int NOT NULL,
    Codigo int NOT NULL,
    CONSTRAINT PK_Temp_EtiquetasSueltas_Clientes PRIMARY KEY CLUSTERED (Cod_Cliente, Codigo)
)
GO

-- Work table of external invoices.
IF OBJECT_ID('Temp_FactExt', 'U') IS NULL
CREATE TABLE Temp_FactExt (
    Cod_Empresa smallint NOT NULL,
    Cliente int NOT NULL,
    Codigo int NOT NULL,
    CONSTRAINT PK_Temp_FactExt PRIMARY KEY CLUSTERED (Cod_Empresa, Cliente, Codigo)
)
GO

-- Discount of a customer: the article's row, else the deepest family level in use that has one, else 0. What a
-- row holds in the family codes below its level says nothing; the lowest go first.
IF OBJECT_ID('KVP_DevDtoDescuentosFamilias', 'P') IS NULL
EXEC ('CREATE PROCEDURE KVP_DevDtoDescuentosFamilias AS RETURN 0')
GO
ALTER PROCEDURE KVP_DevDtoDescuentosFamilias
    @Empresa smallint,
    @Cliente int,
    @Articulo int,
    @Familia1 smallint,
    @Familia2 smallint,
    @Familia3 smallint,
    @Nivel tinyint,
    @Niveles tinyint,
    @EmpFamilia1 bit,
    @EmpFamilia2 bit,
    @EmpFamilia3 bit,
    @Dto money OUTPUT
AS
BEGIN
    SET NOCOUNT ON
    SET @Dto = COALESCE(
        (SELECT TOP 1 Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente
            AND Nivel = @Nivel AND Cod_Articulo = @Articulo ORDER BY Familia_1, Familia_2, Familia_3),
        (SELECT TOP 1 Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente
            AND @EmpFamilia3 <> 0 AND Nivel = 3 AND @Niveles >= 3 AND Familia_1 = @Familia1 AND Familia_2 = @Familia2
            AND Familia_3 = @Familia3 AND Cod_Articulo = 0),
        (SELECT TOP 1 Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente
            AND @EmpFamilia2 <> 0 AND Nivel = 2 AND @Niveles >= 2 AND Familia_1 = @Familia1 AND Familia_2 = @Familia2
            AND Cod_Articulo = 0 ORDER BY Familia_3),
        (SELECT TOP 1 Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente
            AND @EmpFamilia1 <> 0 AND Nivel = 1 AND Familia_1 = @Familia1
            AND Cod_Articulo = 0 ORDER BY Familia_2, Familia_3),
        0)
    RETURN 0
END
GO

-- Discount of a customer's group for a quantity: the same order of levels; within a level the fitting range with the
-- highest lower bound (the narrower one among those), the row for any quantity (0 to 0) last. A quantity of 0 fits that
-- row alone, and group 0 is none. A group without rows, as most are, is done with before anything is put in order.
IF OBJECT_ID('KVP_DevDtoClientesGrupos', 'P') IS NULL
EXEC ('CREATE PROCEDURE KVP_DevDtoClientesGrupos AS RETURN 0')
GO
ALTER PROCEDURE KVP_DevDtoClientesGrupos
    @Empresa smallint,
    @Cliente int,
    @Articulo int,
    @Familia1 smallint,
    @Familia2 smallint,
    @Familia3 smallint,
    @Nivel tinyint,
    @Niveles tinyint,
    @EmpFamilia1 bit,
    @EmpFamilia2 bit,
    @EmpFamilia3 bit,
    @Unidades money,
    @Dto money OUTPUT
AS
BEGIN
    SET NOCOUNT ON
    SET @Dto = COALESCE((SELECT
        (SELECT TOP 1 Descuento FROM (
            SELECT 4 AS Orden, Unidades_Min, Unidades_Max, Familia_1, Familia_2, Familia_3, Descuento
                FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto
                AND Nivel = @Nivel AND Cod_Articulo = @Articulo
            UNION ALL
            SELECT 3, Unidades_Min, Unidades_Max, Familia_1, Familia_2, Familia_3, Descuento
                FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto
                AND @EmpFamilia3 <> 0 AND Nivel = 3 AND @Niveles >= 3 AND Familia_1 = @Familia1
                AND Familia_2 = @Familia2 AND Familia_3 = @Familia3 AND Cod_Articulo = 0
            UNION ALL
            SELECT 2, Unidades_Min, Unidades_Max, Familia_1, Familia_2, Familia_3, Descuento
                FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto
                AND @EmpFamilia2 <> 0 AND Nivel = 2 AND @Niveles >= 2 AND Familia_1 = @Familia1
                AND Familia_2 = @Familia2 AND Cod_Articulo = 0
            UNION ALL
            SELECT 1, Unidades_Min, Unidades_Max, Familia_1, Familia_2, Familia_3, Descuento
                FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto
                AND @EmpFamilia1 <> 0 AND Nivel = 1 AND Familia_1 = @Familia1 AND Cod_Articulo = 0) AS Filas
            WHERE (Unidades_Min = 0 AND Unidades_Max = 0)
                OR (@Unidades <> 0 AND Unidades_Min <= @Unidades AND Unidades_Max >= @Unidades)
            ORDER BY Orden DESC, CASE WHEN Unidades_Min = 0 AND Unidades_Max = 0 THEN 1 ELSE 0 END, Unidades_Min DESC,
                Unidades_Max, Familia_1, Familia_2, Familia_3)
        FROM Clientes c WHERE c.Codigo = @Cliente
            AND c.Cod_Empresa = (SELECT Cod_EmpresaClientes FROM Empresas WHERE Codigo = @Empresa) AND c.Grupo_Dto <> 0
            AND EXISTS (SELECT 1 FROM Clientes_Grp_Descuentos_Fam
                WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto)),
        0)
    RETURN 0
END
GO
