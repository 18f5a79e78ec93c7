# Types the arguments into an interactive zsh, each with a tab after it, and writes the line that came of it.
# Usage: zsh -f complete.zsh WORD...
zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell 'PS1=; autoload compinit; compinit -D -u; show() { print -r -- "<$BUFFER>" }; zle -N show; bindkey "^X" show'
zpty -w shell 'print rea"dy"'
zpty -r shell out '*ready*'
zpty -w -n shell "${(j:	:)@}	"$'\x18'
zpty -r shell out '*<*>*'
print -r -- ${${out##*<}%%>*}
