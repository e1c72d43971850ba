// The looks of the page, and what a click does in it.
#pragma once

#include <string_view>

namespace tolvan::classroom {

inline constexpr std::string_view pageStyle = R"(
:root{color-scheme:light dark;--line:#c9ced6;--dim:#5b6470;--good:#dff3e3;--bad:#fbe1df;--stop:#fdeecb;--none:#e8e9ec;
--mark:#ffd24d;--ink:#1b1f24;--page:#fff;--soft:#f5f6f8}
@media (prefers-color-scheme:dark){:root{--line:#444b55;--dim:#a5adb8;--good:#1d4428;--bad:#5b2523;--stop:#54430f;
--none:#363a41;--mark:#8a6500;--ink:#e8eaed;--page:#16181c;--soft:#1f2227}}
body{font:16px/1.55 'Noto Sans Devanagari','Noto Sans','Nirmala UI',Mangal,'Kohinoor Devanagari',sans-serif;
color:var(--ink);background:var(--page);margin:0 auto;max-width:75rem;padding:1rem 1.5rem}
h1{font-size:1.6rem;margin:.3rem 0}h3{font-size:1rem;margin:.2rem 0 .4rem}
p{margin:.3rem 0}.dim{color:var(--dim)}.scroll{overflow-x:auto}
table{border-collapse:collapse;margin:.3rem 0}
.class{margin:1rem 0}.class th,.class td{border:1px solid var(--line);padding:.25rem .6rem;text-align:left;
white-space:nowrap}
.class th{background:var(--soft);padding:0}.class th button{all:unset;cursor:pointer;padding:.3rem .6rem;display:block;
font-weight:600}
.class th button:focus-visible{outline:2px solid}
.class th[aria-sort=ascending] button::after{content:' ▲'}.class th[aria-sort=descending] button::after{content:' ▼'}
.class td.n{text-align:right;font-variant-numeric:tabular-nums}
.right{background:var(--good)}.wrong,.error{background:var(--bad)}.time,.output,.memory,.files{background:var(--stop)}
.unreadable{background:var(--none)}
details.pupil{border:1px solid var(--line);border-radius:.4rem;margin:.6rem 0;padding:.3rem .8rem}
details.pupil>summary{cursor:pointer;font-weight:600;padding:.2rem 0}
.case{border-left:.35rem solid var(--line);margin:.7rem 0;padding:.1rem .8rem}
.case.right,.case.wrong,.case.error,.case.time,.case.output,.case.memory,.case.files,.case.unreadable{background:none}
.case.right{border-color:#3c9a53}.case.wrong,.case.error{border-color:#cf4437}
.case.time,.case.output,.case.memory,.case.files{border-color:#d99a00}
.diff td,.diff th{border:1px solid var(--line);padding:.15rem .5rem;vertical-align:top;text-align:left;
font-weight:400;white-space:pre-wrap;overflow-wrap:anywhere;min-width:12rem}
.diff th{background:var(--soft);color:var(--dim)}.diff .same{color:var(--dim)}
mark{background:var(--mark);color:inherit;border-radius:.15rem}
.blank{opacity:.65}.cut{background:var(--none);border-radius:.2rem;padding:0 .3rem;font-size:.85em}
pre{background:var(--soft);padding:.4rem .6rem;margin:.3rem 0;white-space:pre-wrap;overflow-wrap:anywhere;
font:inherit;max-height:24rem;overflow:auto}
pre i{color:var(--dim)}
.pictures{display:flex;flex-wrap:wrap;gap:1rem}.pictures figure{margin:.4rem 0}.pictures figcaption{color:var(--dim)}
svg.display{width:30rem;max-width:100%;height:auto;border:1px solid var(--line);font-size:24px;
shape-rendering:crispEdges}
.program{width:100%;margin:.3rem 0}.program td{padding:0 .6rem;vertical-align:top;white-space:pre-wrap;
overflow-wrap:anywhere}
.program td:first-child{color:var(--dim);text-align:right;width:2.5rem}.program td:last-child{color:var(--dim);
font-family:monospace;width:45%}
.program tr.at td{background:var(--bad)}.program td.finding{background:var(--stop);color:inherit;font-family:inherit}
@media print{details.pupil{break-inside:avoid-page}body{max-width:none}}
)";

inline constexpr std::string_view pageScript = R"(
const table=document.querySelector('.class');
for(const button of table.querySelectorAll('th button'))button.onclick=()=>{
const head=button.parentElement,column=head.cellIndex,down=head.ariaSort==='ascending';
for(const other of head.parentElement.cells)other.ariaSort='none';
head.ariaSort=down?'descending':'ascending';
const value=row=>row.cells[column].dataset.v??row.cells[column].textContent;
const rows=[...table.tBodies[0].rows];
rows.sort((a,b)=>value(a).localeCompare(value(b),undefined,{numeric:true})*(down?-1:1));
table.tBodies[0].append(...rows)};
const open=()=>{const pupil=location.hash&&document.getElementById(location.hash.slice(1));
if(pupil){pupil.open=true;pupil.scrollIntoView()}};
addEventListener('hashchange',open);
for(const link of table.querySelectorAll('a'))link.onclick=()=>setTimeout(open);
addEventListener('beforeprint',()=>{for(const one of document.querySelectorAll('details.pupil'))one.open=true});
open();
)";

}  // namespace tolvan::classroom
