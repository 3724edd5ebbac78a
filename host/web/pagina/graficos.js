// A step plot: each stretch keeps its value to its end, and a gap is a gap. Points are found by pointer and by keyboard.

import {crear, dibujar, importe} from './comun.js';

const ALTO = 240;
const MARGEN = {arriba: 24, derecha: 14, abajo: 28, izquierda: 64};

// Some four round values that span from the least to the greatest.
function escala(valores) {
    const menor = Math.min(...valores), mayor = Math.max(...valores);
    const hueco = mayor - menor || Math.abs(mayor) * 0.2 || 1;
    const potencia = 10 ** Math.floor(Math.log10(hueco / 3));
    const paso = [1, 2, 5, 10].map(n => n * potencia).find(n => hueco / n <= 4);
    const desde = Math.floor((menor - hueco * 0.1) / paso), hasta = Math.ceil((mayor + hueco * 0.1) / paso);
    return Array.from({length: hasta - desde + 1}, (_, i) => (desde + i) * paso);
}

/**
 * A plot of stretches {x0, x1, precio, neto, pasado, texto}; x are whole numbers, a price of 0 is none, and the last
 * stretch ends at x1. `ejeX` is {de(x): 0 to 1, marcas: [{x, rotulo}], aqui: x that is marked, rotuloAqui, decir(x)}.
 */
export function grafico(titulo, tramos, ejeX) {
    const lectura = crear('p', {class: 'lectura', 'aria-hidden': 'true'});
    const primero = tramos[0].x0, ultimo = tramos.at(-1).x1;
    const caja = crear('div', {class: 'grafico', tabindex: 0, role: 'slider', 'aria-label': `${titulo}. Flechas: de uno en uno; Re Pág y Av Pág: de tramo en tramo`,
        'aria-valuemin': primero, 'aria-valuemax': ultimo});
    let x = Math.min(Math.max(ejeX.aqui ?? primero, primero), ultimo), medida = null;

    const tramoDe = valor => tramos.findLast(t => t.x0 <= valor) ?? tramos[0];
    const senalar = valor => {
        x = Math.min(Math.max(valor, primero), ultimo);
        const t = tramoDe(x), dicho = `${ejeX.decir(x)}: ${t.texto}`;
        lectura.textContent = dicho;
        caja.setAttribute('aria-valuenow', x);
        caja.setAttribute('aria-valuetext', dicho);
        medida?.senalar(x, t);
    };
    caja.addEventListener('keydown', evento => {
        const aqui = tramos.indexOf(tramoDe(x));
        const destino = {ArrowRight: x + 1, ArrowUp: x + 1, ArrowLeft: x - 1, ArrowDown: x - 1, Home: primero, End: ultimo,
            PageDown: tramos[aqui + 1]?.x0 ?? ultimo, PageUp: x > tramos[aqui].x0 ? tramos[aqui].x0 : tramos[aqui - 1]?.x0 ?? primero}[evento.key];
        if (destino === undefined) return;
        evento.preventDefault();
        senalar(destino);
    });
    caja.addEventListener('pointermove', evento => medida && senalar(medida.inverso(evento.clientX - caja.getBoundingClientRect().left)));
    new ResizeObserver(() => {
        if (caja.clientWidth === 0) return;
        medida = pintar(caja, tramos, ejeX);
        senalar(x);
    }).observe(caja);
    senalar(x);
    return [caja, lectura];
}

function pintar(caja, tramos, ejeX) {
    const ancho = caja.clientWidth, util = ancho - MARGEN.izquierda - MARGEN.derecha;
    const conPrecio = tramos.filter(t => t.precio);
    const marcas = escala(conPrecio.length ? conPrecio.flatMap(t => [t.precio, t.neto ?? t.precio]) : [0, 1]);
    const fondo = ALTO - MARGEN.abajo, alto = fondo - MARGEN.arriba;
    const px = x => MARGEN.izquierda + util * ejeX.de(x);
    const py = y => fondo - alto * (y - marcas[0]) / (marcas.at(-1) - marcas[0]);
    const cursor = dibujar('g', {class: 'cursor'}, dibujar('line', {y1: MARGEN.arriba, y2: fondo}), dibujar('circle', {r: 5}));
    const lienzo = dibujar('svg', {width: ancho, height: ALTO, viewBox: `0 0 ${ancho} ${ALTO}`, 'aria-hidden': 'true'},
        marcas.map(y => [dibujar('line', {class: 'reja', x1: MARGEN.izquierda, x2: ancho - MARGEN.derecha, y1: py(y), y2: py(y)}),
            dibujar('text', {x: MARGEN.izquierda - 8, y: py(y) + 4, 'text-anchor': 'end'}, importe(Number(y.toFixed(4))))]),
        rotulosX(ejeX.marcas, px, ancho, fondo),
        ejeX.aqui === undefined ? [] : [dibujar('line', {class: 'aqui', x1: px(ejeX.aqui), x2: px(ejeX.aqui), y1: MARGEN.arriba - 6, y2: fondo}),
            dibujar('text', {class: 'aqui', x: px(ejeX.aqui), y: MARGEN.arriba - 10, 'text-anchor': ejeX.de(ejeX.aqui) > 0.9 ? 'end' : ejeX.de(ejeX.aqui) < 0.1 ? 'start' : 'middle'}, ejeX.rotuloAqui)],
        tramos.flatMap((t, i) => trazos(t, tramos[i + 1], px, py, fondo)), cursor);
    caja.replaceChildren(lienzo);
    return {
        senalar(x, t) {
            const [linea, punto] = cursor.children;
            linea.setAttribute('x1', px(x));
            linea.setAttribute('x2', px(x));
            punto.setAttribute('cx', px(x));
            punto.setAttribute('cy', t.precio ? py(t.precio) : fondo);
        },
        inverso: pixel => ejeX.inverso(Math.min(Math.max((pixel - MARGEN.izquierda) / util, 0), 1)),
    };
}

// Labels that would run into each other are left out.
function rotulosX(marcas, px, ancho, fondo) {
    let libre = 0;
    return marcas.flatMap(({x, rotulo}) => {
        const mitad = rotulo.length * 3.7, centro = Math.min(Math.max(px(x), mitad), ancho - mitad);
        if (centro - mitad < libre) return [];
        libre = centro + mitad + 12;
        return [dibujar('line', {class: 'reja', x1: px(x), x2: px(x), y1: fondo, y2: fondo + 5}), dibujar('text', {x: centro, y: fondo + 20, 'text-anchor': 'middle'}, rotulo)];
    });
}

// A stretch and the rise or fall to the next one, when that has a price too.
function trazos(t, siguiente, px, py, fondo) {
    const fin = px(siguiente ? siguiente.x0 : t.x1);
    if (!t.precio)
        return fin - px(t.x0) < 60 ? [] : [dibujar('text', {x: (px(t.x0) + fin) / 2, y: fondo - 8, 'text-anchor': 'middle'}, 'sin precio')];
    const linea = (clase, valor, despues) => dibujar('path', {class: t.pasado ? `${clase} pasado` : clase,
        d: `M${px(t.x0)} ${py(valor)}H${fin}` + (despues && siguiente?.precio ? `V${py(despues)}` : '')});
    const lineas = [linea('precio', t.precio, siguiente?.precio)];
    if (t.neto !== undefined && t.neto !== null && t.neto !== t.precio) lineas.push(linea('neto', t.neto));
    return lineas;
}
