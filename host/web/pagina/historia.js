// The price of the line day by day, and quantity by quantity: a plot and the same numbers in a table.

import {cantidad, crear, dia, diasEntre, importe, otroDia, preguntar, tabla} from './comun.js';
import {grafico} from './graficos.js';

const MESES = ['ene', 'feb', 'mar', 'abr', 'may', 'jun', 'jul', 'ago', 'sep', 'oct', 'nov', 'dic'];
const ESCALERA = [1, 2, 3, 5, 6, 10, 12, 20, 24, 50, 100, 200, 500, 1000];

const enPalabras = t => (t.precio ? importe(t.precio) + (t.descuento ? `, dto. ${cantidad(t.descuento)} %, neto ${importe(t.neto)}` : '') : 'sin precio') + (t.porque ? `; ${t.porque}` : '');
const celdas = t => [t.precio ? importe(t.precio) : 'sin precio', t.descuento ? `${cantidad(t.descuento)} %` : '—', t.precio ? importe(t.neto) : '—', t.porque];
const COLUMNAS = [{rotulo: 'Precio', numero: true}, {rotulo: 'Dto.', numero: true}, {rotulo: 'Neto', numero: true}, {rotulo: 'Por qué'}];

/** The history of a question's price between two days. */
export async function historiaDe(pregunta, desde, hasta, hoy, senal) {
    const {fecha, ...terminos} = pregunta;
    const documento = await preguntar('historia', {...terminos, desde, hasta}, senal);
    const tramos = documento.tramos.map(t => ({...t, porque: t.motivo, x0: diasEntre(desde, t.desde), x1: diasEntre(desde, t.hasta)}));
    tramos.forEach(t => t.texto = enPalabras(t) + (t.pasado ? ' (con las tarifas de hoy, no lo que se cobró)' : ''));
    const dias = diasEntre(desde, hasta), alDia = otroDia.bind(null, desde);
    const eje = {
        de: x => dias ? x / dias : 0, inverso: u => Math.round(u * dias), decir: x => dia(alDia(x)), marcas: meses(desde, hasta),
        aqui: hoy >= desde && hoy <= hasta ? diasEntre(desde, hoy) : undefined, rotuloAqui: 'hoy',
    };
    return [
        ...grafico('El precio día a día', tramos, eje),
        leyenda(tramos),
        tabla('Los mismos datos, tramo a tramo', [{rotulo: 'Desde'}, {rotulo: 'Hasta'}, ...COLUMNAS],
            tramos.map(t => [dia(t.desde), dia(t.hasta), ...celdas(t)])),
    ];
}

function meses(desde, hasta) {
    const marcas = [];
    for (let [ano, mes] = desde.split('-').map(Number); ; ) {
        if (++mes > 12) [mes, ano] = [1, ano + 1];
        const primero = `${String(ano).padStart(4, '0')}-${String(mes).padStart(2, '0')}-01`;
        if (primero > hasta) return marcas;
        marcas.push({x: diasEntre(desde, primero), rotulo: mes === 1 ? `${MESES[0]} ${ano}` : MESES[mes - 1]});
    }
}

function leyenda(tramos) {
    const dichos = ['Línea gruesa: el precio.'];
    if (tramos.some(t => t.neto !== t.precio)) dichos.push('Línea fina: el neto, con el descuento de la línea.');
    if (tramos.some(t => t.pasado)) dichos.push('A trazos, los días pasados: con las tarifas de hoy, no lo que se cobró.');
    return crear('p', {class: 'nota'}, dichos.join(' '));
}

/** The price of a question for growing quantities: asked for some, and between two that differ for the first one that does. */
export async function unidadesDe(pregunta, senal) {
    const hallados = new Map();
    const precioCon = async unidades => {
        if (!hallados.has(unidades)) hallados.set(unidades, await preguntar('cargar', {...pregunta, unidades}, senal));
        return hallados.get(unidades);
    };
    const igual = (a, b) => a.precio === b.precio && a.descuento === b.descuento && a.neto === b.neto;
    await Promise.all(ESCALERA.map(precioCon));
    for (let i = 1; i < ESCALERA.length; ++i) {
        let bajo = ESCALERA[i - 1], alto = ESCALERA[i];
        while (alto - bajo > 1 && !igual(await precioCon(bajo), await precioCon(alto))) {
            const medio = Math.floor((bajo + alto) / 2);
            if (igual(await precioCon(bajo), await precioCon(medio))) bajo = medio;
            else alto = medio;
        }
    }
    const pedidas = [...hallados.keys()].sort((a, b) => a - b), tope = ESCALERA.at(-1);
    const tramos = [];
    for (const unidades of pedidas) {
        const d = hallados.get(unidades), anterior = tramos.at(-1);
        if (anterior && igual(anterior, d)) anterior.x1 = unidades;
        else tramos.push({x0: unidades, x1: unidades, precio: d.precio, descuento: d.descuento, neto: d.neto, porque: porqueDe(d)});
    }
    tramos.forEach(t => t.texto = enPalabras(t));
    const log = Math.log(tope), eje = {
        de: x => Math.log(x) / log, inverso: u => Math.round(Math.exp(u * log)), decir: x => `${cantidad(x)} u.`,
        marcas: [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000].map(x => ({x, rotulo: cantidad(x)})),
        aqui: pregunta.unidades >= 1 && pregunta.unidades <= tope ? Number(pregunta.unidades) : undefined, rotuloAqui: 'las pedidas',
    };
    return [
        ...grafico('El precio según las unidades', tramos, eje), leyenda(tramos),
        tabla('El precio según las unidades', [{rotulo: 'Desde', numero: true}, {rotulo: 'Hasta', numero: true}, ...COLUMNAS],
            tramos.map((t, i) => [cantidad(t.x0), cantidad(tramos[i + 1] ? tramos[i + 1].x0 - 1 : tope), ...celdas(t)])),
        crear('p', {class: 'nota'}, `Se ha preguntado por ${pedidas.length} cantidades, de 1 a ${cantidad(tope)}. Un tramo que empiece y acabe entre dos de ellas no se ve.`),
    ];
}

function porqueDe(documento) {
    const deLinea = documento.explicacion.filter(p => p.fuente.startsWith('Descuento de ') && p.importe && p.antes === null);
    return [...documento.explicacion.filter(p => p.decide), ...deLinea].map(p => p.fuente).join(', ');
}
