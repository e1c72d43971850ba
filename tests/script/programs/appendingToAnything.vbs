' Texts grow in place also where objects and texts that run could see the half of them.
Dim g
Class Sees
Public Default Property Get v
PrintString "sees " & g : v = "v"
End Property
End Class
Class Changes
Public Default Property Get v
g = "changed" : v = "v"
End Property
End Class
Class Holder
Public text
Sub grow(n)
For i = 1 To n : text = text & i & "," : Next
End Sub
End Class
Set o = New Sees : Set p = New Changes : g = "g" : g = g & 1 & o & o '> sees g
PrintString g                     '> sees g
'> g1vv
g = g & p & "x" : PrintString g   '> g1vvvx
Set h = New Holder : h.grow 3 : PrintString h.text '> 1,2,3,
local "start"
Sub local(t)
t = t & Eval("t & 1") & t : PrintString t '> startstart1start
Execute "u = t"
u = u & "+" & 1 : PrintString u   '> startstart1start+1
Set s = o : s = s & "from object" & o '> sees g1vvvx
PrintString s                     '> sees g1vvvx
'> vfrom objectv
n = n & "Empty" : PrintString n   '> Empty
a = Array(1)
On Error Resume Next
u = u & "half" & a : PrintString Len(u) & Err '> 1813
Set q = Nothing : q = q & "half" : PrintString Err '> 91
End Sub
